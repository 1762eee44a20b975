// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <optional>

namespace tickwell::shell {

/// What the left button does to the main window: moved far enough it drags the window along, or its right
/// edge; let go where it was pressed it is a click.
class PointerGesture {
public:
    /// `slack`: pixels that a hand may tremble before a press becomes a drag.
    explicit PointerGesture(int slack) : m_slack(slack) {}

    /// Whether this place of the window, in its own coordinates, is the edge that changes the width.
    static bool IsAtEdge(QPoint local, QSize window);

    /// `pointer` and `window` on the screen.
    void Press(QPoint pointer, const QRect& window);

    /// Where the window should be now, or nothing when it should stay.
    std::optional<QRect> Move(QPoint pointer);

    /// True when the press was a click.
    bool Release();

private:
    int m_slack;
    bool m_pressed = false;
    bool m_dragging = false;
    bool m_atEdge = false;
    QPoint m_start;
    QRect m_window;
};

}  // namespace tickwell::shell
