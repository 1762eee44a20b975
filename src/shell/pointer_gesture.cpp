// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/pointer_gesture.h"

#include <algorithm>

namespace tickwell::shell {

namespace {

constexpr int kEdge = 6;        // pixels at the right edge within which dragging changes the width
constexpr int kNarrowest = 45;  // pixels; wide enough for the edge to be dragged again

}  // namespace

bool PointerGesture::IsAtEdge(QPoint local, QSize window) {
    return local.x() >= window.width() - kEdge;
}

QRect PointerGesture::Widened(const QRect& window, int by) {
    return {window.topLeft(), QSize(std::max(kNarrowest, window.width() + by), window.height())};
}

void PointerGesture::Press(QPoint pointer, const QRect& window) {
    m_pressed = true;
    m_dragging = false;
    m_start = pointer;
    m_window = window;
    m_atEdge = IsAtEdge(pointer - window.topLeft(), window.size());
}

std::optional<QRect> PointerGesture::Move(QPoint pointer) {
    if (!m_pressed) {
        return std::nullopt;
    }
    const QPoint way = pointer - m_start;
    m_dragging = m_dragging || way.manhattanLength() >= m_slack;
    if (!m_dragging) {
        return std::nullopt;
    }
    return m_atEdge ? Widened(m_window, way.x()) : m_window.translated(way);
}

bool PointerGesture::Release() {
    const bool click = m_pressed && !m_dragging;
    m_pressed = false;
    m_dragging = false;
    return click;
}

}  // namespace tickwell::shell
