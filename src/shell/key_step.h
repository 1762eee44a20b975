// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace tickwell::shell {

/// The change that a key makes to the main window's geometry, in logical pixels.
struct KeyStep {
    QPoint way;        ///< the displacement of the window
    int widening = 0;  ///< the change of its width; negative if narrower

    bool operator==(const KeyStep&) const = default;
};

/// The effect of a key: an arrow key moves the window by 8 pixels, or by 1 with Shift; with Ctrl, left and
/// right change the width by as much. nullopt for all other keys and modifiers.
std::optional<KeyStep> KeyStepOf(int key, Qt::KeyboardModifiers modifiers);

/// The geometry of `window` after a step, with the same limits as dragging, during which the pointer is
/// always on a screen: a step that would move the window off all `screens` does nothing, and the right edge
/// never goes beyond the rightmost screen.
QRect AfterStep(const QRect& window, const KeyStep& step, const QList<QRect>& screens);

}  // namespace tickwell::shell
