// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QWidget>

namespace tickwell {

/// Where a window of this size goes that is opened from `opener`: below it, else above, else beside it, as
/// far as `screen` leaves room, and always wholly on the screen where it fits there at all. Places and sizes
/// are those inside the frame that a window manager puts around it; room is left for its title.
QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen);

/// Puts a window that is not shown yet there, above other programs' windows as the main window is, whom it
/// would be hidden by else.
void PlaceNear(QWidget& window, const QWidget& opener);

/// While a window is open that blocks all others, lets this one through: the user can work with it. Without
/// one it does nothing.
void LetThroughModal(QWidget& window);

}  // namespace tickwell
