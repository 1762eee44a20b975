// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>
#include <QWidget>

namespace tickwell {

/// The corner of a rectangle of this size that lies on `screen`, covers neither `opener` nor any of `taken`,
/// and is as near to `opener` as possible: of equal distances below it, else above, else to the right, else
/// to the left. If no place is free, the one that covers the least. What is larger than the screen is put at
/// the screen's corner.
QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen, const QList<QRect>& taken);

/// Puts a window that is not shown yet near `opener` with its frame and title bar on the screen, apart from
/// our other windows, and above other programs' windows, as the main window is, which it would be hidden by
/// otherwise.
void PlaceNear(QWidget& window, const QWidget& opener);

/// While a window is open that blocks all others, lets this one through: the user can work with it. Without
/// one it does nothing.
void LetThroughModal(QWidget& window);

}  // namespace tickwell
