// SPDX-License-Identifier: GPL-3.0-or-later
// What mouse, keyboard and window system tell the main window.
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

/// Below the window, with its first item chosen, as whoever came by keyboard goes on by keyboard.
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

/// Either button opens the menu with its release: by then it is known whether the left one was a drag.
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
        windowHandle()->installEventFilter(this);  // once, however often
        SetSeen(true);
    } else if (event->type() == QEvent::Hide) {
        SetSeen(false);
    }
    return QWidget::event(event);
}

/// A window manager takes a window off the screen without a word to the widget, for instance with its
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
