// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <optional>

namespace tickwell::shell {

/// The left button on the main window: moving the pointer far enough drags the window or its right edge; a
/// release without that is a click.
class PointerGesture {
public:
    /// `slack`: pixels that the pointer must move until a press becomes a drag.
    explicit PointerGesture(int slack) : m_slack(slack) {}

    /// Whether this point, in window coordinates, is on the edge that changes the width.
    static bool IsAtEdge(QPoint local, QSize window);

    /// The geometry with the right edge moved by this many pixels, but never too narrow to be dragged again.
    static QRect Widened(const QRect& window, int by);

    /// `pointer` and `window` in screen coordinates.
    void Press(QPoint pointer, const QRect& window);

    /// The new geometry of the window; nullopt if it is unchanged.
    std::optional<QRect> Move(QPoint pointer);

    /// Whether the press was on the edge, so that dragging changes the width.
    bool ChangesWidth() const { return m_pressed && m_atEdge; }

    /// Whether the button is down.
    bool IsPressed() const { return m_pressed; }

    /// Ends the gesture; returns whether it was a click.
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
