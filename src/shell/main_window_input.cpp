// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's events from mouse, keyboard and window system.
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include "shell/main_window.h"

namespace tickwell::shell {

void Form1::PopUpMenu(QPoint at) {
    m_menu->popup(at);
}

/// Opens the menu below the window and selects its first item, for further use of the keyboard.
void Form1::OpenMenuByKey() {
    PopUpMenu(mapToGlobal(rect().bottomLeft()));
    for (QAction* item : m_menu->actions()) {
        if (item->isEnabled() && !item->isSeparator()) {
            m_menu->setActiveAction(item);
            return;
        }
    }
}

void Form1::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_geometry.Settle();
        m_gesture.Press(event->globalPosition().toPoint(), geometry());
    }
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    const bool atEdge = PointerGesture::IsAtEdge(mapFromGlobal(event->globalPosition()).toPoint(), size());
    setCursor(atEdge ? Qt::SizeHorCursor : Qt::ArrowCursor);
    if (const auto wanted = m_gesture.Move(event->globalPosition().toPoint())) {
        setGeometry(*wanted);
    }
}

/// Either button opens the menu when it is released: only then is it known whether the left one has dragged.
void Form1::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = event->button() == Qt::LeftButton && m_gesture.Release();
    if (click || event->button() == Qt::RightButton) {
        PopUpMenu(event->globalPosition().toPoint());
    }
}

void Form1::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        OpenMenuByKey();
    }
}

void Form1::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_F10) {
        OpenMenuByKey();
        return;
    }
    QWidget::keyPressEvent(event);
}

void Form1::moveEvent(QMoveEvent* /*event*/) {
    if (m_geometry.Moved(pos())) {
        QMetaObject::invokeMethod(
            this, [this] { move(m_geometry.Position()); }, Qt::QueuedConnection);
    } else if (m_parts.further.face.staysOnScreen) {
        m_screens.Moved(geometry());
    }
}

void Form1::resizeEvent(QResizeEvent* event) {
    m_geometry.Resized(event->size().width());
    Form_Resize();
}

bool Form1::event(QEvent* event) {
    if (event->type() == QEvent::Show) {
        if (!event->spontaneous()) {  // about to be mapped
            m_parts.stack.Declare(winId());
            QMetaObject::invokeMethod(
                this, [this] { m_parts.stack.AskForDeclared(winId()); }, Qt::QueuedConnection);
        }
        windowHandle()->installEventFilter(this);  // repeated calls have no effect
        SetSeen(true);
    } else if (event->type() == QEvent::Hide) {
        SetSeen(false);
    }
    return QWidget::event(event);
}

/// A window manager can hide a window without an event for the widget, for instance when it switches the
/// desktop.
bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose && watched == windowHandle()) {
        SetSeen(windowHandle()->isExposed());
    }
    return QWidget::eventFilter(watched, event);
}

void Form1::closeEvent(QCloseEvent* event) {
    m_parts.handlers.Run([this] { SaveAll(); });
    m_storage.Remove();
    for (const auto& display : m_displays) {
        display->CloseWindows();
    }
    event->accept();
    m_parts.closed();
}

}  // namespace tickwell::shell
