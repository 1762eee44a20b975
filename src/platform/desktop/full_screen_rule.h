// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>

namespace tickwell::platform {

/// A window as the window manager reports it.
struct DesktopWindow {
    quint32 id = 0;
    QRect area;  ///< device pixels, without its frame
    bool isFullScreen = false;
    bool isShown = true;  ///< neither iconified nor on another workspace
    bool isOurs = false;
};

/// Whether a full-screen window of another program is visible at `place`: the topmost shown window there, or
/// the active window, is one. Windows of this program count neither as full-screen nor as covering another
/// one. `stack` is ordered from the lowest window to the topmost; `active`: 0 for none.
bool IsUnderFullScreen(const QList<DesktopWindow>& stack, quint32 active, const QRect& place);

}  // namespace tickwell::platform
