// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Returns the keyboard focus to the window, of whichever program, that had it before the main window.
/// Windows are identified by their window system ids. No function waits for the window manager.
class FocusReturn {
public:
    virtual ~FocusReturn() = default;

    /// From now on remembers which window other than `window` had the focus last.
    virtual void Follow(quintptr window) = 0;

    /// Remembers nothing any more.
    virtual void Unfollow() = 0;

    /// Requests the focus for the remembered window; does nothing if there is none.
    virtual void GiveBack() = 0;
};

}  // namespace tickwell
