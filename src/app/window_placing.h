// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>
#include <QWidget>

namespace tickwell::app {

/// The position for a rectangle of this size on `screen` that covers neither `opener` nor any of `taken` and
/// is as near to `opener` as possible; at equal distance preferably below it, then above, to the right or to
/// the left. If no position is free, the one that covers the least area. A rectangle larger than the screen
/// is placed at the screen's top left corner.
QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen, const QList<QRect>& taken);

/// When a window is kept above other programs' windows, as the main window is.
enum class OnTop { IfNeeded, Always };

/// Moves a hidden window near `opener`, with its frame and title bar on the screen and without covering the
/// program's other windows. IfNeeded: it is kept on top only if it covers `opener`, which would otherwise be
/// above it.
void PlaceNear(QWidget& window, const QWidget& opener, OnTop onTop);

/// The active modal window if it or one of its parents is application-modal, otherwise a visible
/// application-modal window; null if there is none. The active one may be a message box that is modal to a
/// different window.
QWidget* BlockingWindow();

/// If an application-modal window is open, keeps this window usable in spite of it; otherwise does nothing.
void LetThroughModal(QWidget& window);

}  // namespace tickwell::app
