// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace tickwell::shell {

/// What a key changes about the main window, in logical pixels.
struct KeyStep {
    QPoint way;        ///< by which the window moves
    int widening = 0;  ///< by which it becomes wider; negative if narrower

    bool operator==(const KeyStep&) const = default;
};

/// An arrow key moves by 8 pixels, with Shift by 1. With Ctrl the left and right ones change the width by as
/// much. Nothing for all other keys and modifiers.
std::optional<KeyStep> KeyStepOf(int key, Qt::KeyboardModifiers modifiers);

/// The geometry of `window` after a step. It has the limits that dragging has, where the pointer is always on
/// a screen: a step that would take the window off all `screens` does nothing, and no step takes the right
/// edge beyond the rightmost screen.
QRect AfterStep(const QRect& window, const KeyStep& step, const QList<QRect>& screens);

}  // namespace tickwell::shell
