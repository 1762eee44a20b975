// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

namespace tickwell::shell {

/// A screen by the name of its connector, which it keeps when it is connected again.
struct NamedScreen {
    QString name;
    QRect area;  ///< logical pixels
};

/// A position relative to the corner of a screen.
struct ScreenPlace {
    QString screen;  ///< empty: none
    QPoint offset;   ///< logical pixels

    bool operator==(const ScreenPlace&) const = default;
};

/// Where a window is, on the screen with the largest part of it; empty if it is on none.
ScreenPlace PlaceOf(const QRect& window, const QList<NamedScreen>& screens);

/// Where a window belongs: at its remembered position if that screen is connected; otherwise where it is if
/// the screens show all of it, and else at the nearest position inside the nearest screen. A window larger
/// than the screen keeps its left upper corner inside.
QPoint PositionInside(const QRect& window, const ScreenPlace& remembered, const QList<NamedScreen>& screens);

}  // namespace tickwell::shell
