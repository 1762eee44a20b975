// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>

namespace tickwell::platform {

/// A window as its window manager describes it.
struct DesktopWindow {
    quint32 id = 0;
    QRect area;  ///< device pixels, without its frame
    bool isFullScreen = false;
    bool isShown = true;  ///< neither iconified nor on another workspace
    bool isOurs = false;
};

/// Whether a full-screen window of another program is seen at `place`: its topmost shown window there is one,
/// or the active window is one. Our own windows count neither as full-screen nor as covering another one.
/// `stack` is ordered from the lowest window to the topmost; `active`: 0 for none.
bool IsUnderFullScreen(const QList<DesktopWindow>& stack, quint32 active, const QRect& place);

}  // namespace tickwell::platform
