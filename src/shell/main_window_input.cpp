// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's events from mouse, keyboard and window system.
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWindow>

#include "shell/main_window.h"

namespace tickwell::shell {

/// Opens the menu below the window with its first item selected, for use with the keyboard.
void Form1::OpenMenuByKey() {
    m_menu->popup(mapToGlobal(rect().bottomLeft()));
    for (QAction* item : m_menu->actions()) {
        if (item->isEnabled() && !item->isSeparator()) {
            m_menu->setActiveAction(item);
            return;
        }
    }
}

void Form1::Clicked(QPoint pointer) {
    m_menu->popup(pointer);
}

void Form1::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        OpenMenuByKey();
    }
}

void Form1::keyPressEvent(QKeyEvent* event) {
    const auto& help = m_parts.windows.windowHelp;
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_F10) {
        OpenMenuByKey();
    } else if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier && help) {
        m_parts.handlers.Run(help, this);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_announcer.Ask();
    } else if (!m_keys.Press(*event)) {
        QWidget::keyPressEvent(event);
    }
}

void Form1::resizeEvent(QResizeEvent* event) {
    Keeper().Resized(event->size().width());
    Form_Resize();
    m_clicks.Resized();
}

bool Form1::event(QEvent* event) {
    if (event->type() == QEvent::Show) {
        if (!event->spontaneous()) {  // about to be mapped
            Declare();
            QMetaObject::invokeMethod(
                this, [this] { m_parts.stack.AskForDeclared(winId()); }, Qt::QueuedConnection);
        }
        windowHandle()->installEventFilter(this);  // repeated calls have no effect
        SetSeen(true);
    } else if (event->type() == QEvent::Hide) {
        SetSeen(false);
    } else if (event->type() == QEvent::WindowActivate) {
        m_announcer.Ask();
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
