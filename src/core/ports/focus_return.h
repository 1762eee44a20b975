// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Returns the keyboard focus to the window, of any program, that had it before the main window. Windows are
/// identified by their window system ids. No function waits for the window manager.
class FocusReturn {
public:
    virtual ~FocusReturn() = default;

    /// From now on tracks which window other than `window` last had the focus.
    virtual void Follow(quintptr window) = 0;

    /// Stops tracking and forgets the window.
    virtual void Unfollow() = 0;

    /// Requests the focus for the remembered window; does nothing if there is none.
    virtual void GiveBack() = 0;
};

}  // namespace tickwell
