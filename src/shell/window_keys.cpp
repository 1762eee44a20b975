// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/window_keys.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <utility>

#include "shell/key_step.h"

namespace tickwell::shell {

WindowKeys::WindowKeys(QWidget& window, QMenu& menu, const KeyboardSettings& settings, FocusReturn& focus,
                       std::function<void()> beforeStep)
    : m_window(window), m_settings(settings), m_focus(focus), m_beforeStep(std::move(beforeStep)) {
    menu.installEventFilter(this);
    connect(&menu, &QMenu::aboutToHide, this, &WindowKeys::MenuHidden);
}

WindowKeys::~WindowKeys() {
    m_focus.Unfollow();
}

void WindowKeys::Follow() {
    if (m_settings.movesWindow) {
        m_focus.Follow(m_window.winId());
    } else {
        m_focus.Unfollow();
    }
}

bool WindowKeys::Press(const QKeyEvent& event) {
    if (!m_settings.movesWindow) {
        return false;
    }
    if (event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier) {
        m_focus.GiveBack();
        return true;
    }
    return Step(event);
}

bool WindowKeys::Step(const QKeyEvent& event) {
    const std::optional<KeyStep> step = KeyStepOf(event.key(), event.modifiers());
    if (!step) {
        return false;
    }
    QList<QRect> screens;
    for (const QScreen* each : QGuiApplication::screens()) {
        screens.append(each->geometry());
    }
    m_beforeStep();
    m_window.setGeometry(AfterStep(m_window.geometry(), *step, screens));
    return true;
}

/// An open submenu receives Esc itself, so an Esc seen here closes the whole menu.
bool WindowKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        m_escaped = static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
    }
    return QObject::eventFilter(watched, event);
}

void WindowKeys::MenuHidden() {
    if (std::exchange(m_escaped, false) && m_settings.movesWindow) {
        m_focus.GiveBack();
        return;
    }
    QMetaObject::invokeMethod(this, &WindowKeys::NoticeFocus, Qt::QueuedConnection);  // once it is closed
}

/// Qt's widgets ignore an activation while a popup is open, and it is not repeated afterwards: the keyboard
/// would belong to the window, but it would remain inactive and silent for screen readers.
void WindowKeys::NoticeFocus() {
    const QWindow* focused = QGuiApplication::focusWindow();
    if (focused != nullptr && focused == m_window.windowHandle() && !m_window.isActiveWindow()) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED  // Qt has no other call that does not ask the window manager again
            QApplication::setActiveWindow(&m_window);
        QT_WARNING_POP
    }
}

}  // namespace tickwell::shell
