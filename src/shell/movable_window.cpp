// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/movable_window.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>

namespace tickwell::shell {

MovableWindow::MovableWindow(Qt::WindowFlags flags, const MovableWindowParts& parts)
    : QWidget(nullptr, flags),
      m_moving(parts),
      m_screens(parts.handlers, parts.timers,
                [this] {
                    ReturnToScreen();
                    PlaceChanged();
                }),
      m_gesture(QGuiApplication::styleHints()->startDragDistance()) {
    setMouseTracking(true);
}

void MovableWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_geometry.Settle();
        // Some compositors move the window without notifying Qt; the difference of these positions gives its
        // real one.
        const QPoint pointer = event->globalPosition().toPoint();
        const QPoint local = event->position().toPoint();
        m_gesture.Press(pointer, QRect(pointer - local, size()));
    }
}

void MovableWindow::mouseMoveEvent(QMouseEvent* event) {
    const bool atEdge = PointerGesture::IsAtEdge(event->position().toPoint(), size());
    setCursor(atEdge ? Qt::SizeHorCursor : Qt::ArrowCursor);
    if (const auto wanted = m_gesture.Move(event->globalPosition().toPoint())) {
        if (!HandsDragOver()) {
            setGeometry(*wanted);
        }
    }
}

/// Hands the drag over to the compositor if that decides the positions of windows. It also receives the
/// release of the button, so the gesture ends here.
bool MovableWindow::HandsDragOver() {
    if (!m_moving.isPlacedByCompositor) {
        return false;
    }
    const bool isHandedOver = m_gesture.ChangesWidth() ? windowHandle()->startSystemResize(Qt::RightEdge)
                                                       : windowHandle()->startSystemMove();
    if (isHandedOver) {
        m_gesture.Release();
    }
    return isHandedOver;
}

/// Both buttons click on release: only then is it known that the left one did not drag.
void MovableWindow::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = event->button() == Qt::LeftButton && m_gesture.Release();
    if (click || event->button() == Qt::RightButton) {
        Clicked(event->globalPosition().toPoint());
    }
    PlaceChanged();
}

void MovableWindow::moveEvent(QMoveEvent* /*event*/) {
    if (m_moving.isPlacedByCompositor) {
        m_geometry.Settle();  // if it is moved back, sway centres it
    }
    if (m_geometry.Moved(pos())) {
        QMetaObject::invokeMethod(
            this, [this] { move(m_geometry.Position()); }, Qt::QueuedConnection);
    } else if (m_moving.face.staysOnScreen) {
        m_screens.Moved(geometry());
    }
}

void MovableWindow::ReturnToScreen() {
    if (!m_moving.face.staysOnScreen) {
        m_screens.Set({});
        return;
    }
    const QRect stored(m_geometry.Position(), size());
    const QPoint place = m_screens.PositionFor(stored);
    if (place != stored.topLeft()) {
        m_geometry.Settle();  // this position is intentional, not the stored one
        m_geometry.Moved(place);
        m_geometry.Unsettle();  // window managers also move windows when the screens change
        move(place);
    }
}

}  // namespace tickwell::shell
