// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/key_step.h"

#include <algorithm>

#include "shell/pointer_gesture.h"

namespace tickwell::shell {

namespace {

// pixels
constexpr int kStep = 8;
constexpr int kSmallStep = 1;

/// The direction of an arrow key; null for other keys.
QPoint DirectionOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return {-1, 0};
        case Qt::Key_Right:
            return {1, 0};
        case Qt::Key_Up:
            return {0, -1};
        case Qt::Key_Down:
            return {0, 1};
        default:
            return {};
    }
}

bool IsOnAny(const QRect& window, const QList<QRect>& screens) {
    return std::any_of(screens.begin(), screens.end(),
                       [&](const QRect& screen) { return screen.intersects(window); });
}

/// The width with which the right edge touches that of the rightmost screen.
int WidestAt(int left, const QList<QRect>& screens) {
    int right = left;
    for (const QRect& screen : screens) {
        right = std::max(right, screen.right());
    }
    return right - left + 1;
}

}  // namespace

std::optional<KeyStep> KeyStepOf(int key, Qt::KeyboardModifiers modifiers) {
    modifiers.setFlag(Qt::KeypadModifier, false);  // some keyboards report it for all arrow keys
    const QPoint direction = DirectionOf(key);
    const int size = modifiers.testFlag(Qt::ShiftModifier) ? kSmallStep : kStep;
    modifiers.setFlag(Qt::ShiftModifier, false);
    if (direction.isNull() || (modifiers != Qt::NoModifier && modifiers != Qt::ControlModifier)) {
        return std::nullopt;
    }
    if (modifiers == Qt::NoModifier) {
        return KeyStep{direction * size, 0};
    }
    return direction.x() == 0 ? std::nullopt : std::optional(KeyStep{{}, direction.x() * size});
}

QRect AfterStep(const QRect& window, const KeyStep& step, const QList<QRect>& screens) {
    if (step.widening != 0) {
        const QRect wider = PointerGesture::Widened(window, step.widening);
        const int widest = std::max(window.width(), WidestAt(window.left(), screens));
        return {wider.topLeft(), QSize(std::min(wider.width(), widest), wider.height())};
    }
    const QRect moved = window.translated(step.way);
    return IsOnAny(window, screens) && !IsOnAny(moved, screens) ? window : moved;
}

}  // namespace tickwell::shell
