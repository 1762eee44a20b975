// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// The order in which the desktop's windows lie above each other.
class WindowStack {
public:
    virtual ~WindowStack() = default;

    /// Puts a window of ours, by its number in the window system, above all others. It is not moved, sized,
    /// shown or given the focus.
    virtual void PutAbove(quintptr window) = 0;
};

}  // namespace tickwell
