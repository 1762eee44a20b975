// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// How the window manager treats a window of this program: above all others, on all workspaces, and usually
/// in neither taskbar nor pager. Windows are identified by their window system ids. No function moves,
/// resizes, shows or focuses a window, and none waits for the window manager.
class WindowStack {
public:
    virtual ~WindowStack() = default;

    /// Declares, for a window that is about to be shown, that it belongs on all workspaces, appears in
    /// taskbar and pager only if `inSwitcher`, and does not want the focus for now. A window loses this when
    /// it is hidden, so it must be declared each time before it is shown. The other functions request what
    /// was declared last.
    virtual void Declare(quintptr window, bool inSwitcher) = 0;

    /// Requests the same from the window manager once the window has been shown, in case it ignored the
    /// declaration.
    virtual void AskForDeclared(quintptr window) = 0;

    /// Raises a window above all others, and requests again any declared state that is missing.
    virtual void PutAbove(quintptr window) = 0;

    /// Moves a window to the current workspace, and ends "show desktop".
    virtual void BringToUser(quintptr window) = 0;

    /// Whether a window that should be shown is iconified, or unmanaged although a window manager is running.
    /// It then has to be hidden and shown again. False while the window manager shows the desktop: it
    /// restores the window itself.
    virtual bool IsLost(quintptr window) = 0;
};

}  // namespace tickwell
