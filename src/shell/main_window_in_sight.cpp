// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the main window visible: above the others, on the screen, out of the notification area.
#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "shell/main_window.h"

namespace tickwell::shell {

namespace {

bool IsExposed(const QWidget& window) {
    return window.windowHandle() != nullptr && window.windowHandle()->isExposed();
}

QList<QRect> ScreenAreas() {
    QList<QRect> screens;
    for (const QScreen* each : QGuiApplication::screens()) {
        screens.append(each->geometry());
    }
    return screens;
}

}  // namespace

void Form1::SetStored(bool stored) {
    if (!stored) {
        m_hiding.Insist();
    }
    UpdateShown();
}

/// Shows or hides the window, depending on the notification area and on full-screen windows.
void Form1::UpdateShown() {
    const bool isShown = !m_storage.IsStored() && !m_hiding.IsHidden();
    if (isShown) {
        Keeper().Unsettle();
        move(Keeper().Position());
    }
    setVisible(isShown);
    m_clicks.EnableTaking();
    UpdateKeepTop();
}

/// Whether the user is working with the window, so that it must not be hidden now.
bool Form1::IsInUse() const {
    return m_keepTopHeld || IsPressed() || QApplication::activePopupWidget() != nullptr;
}

void Form1::HoldKeepTop(bool held) {
    m_keepTopHeld = held;
    UpdateKeepTop();
    m_hiding.Look();
}

void Form1::UpdateKeepTop() {
    if (m_started && !m_keepTopHeld && !m_storage.IsStored() && !m_hiding.IsHidden()) {
        m_keepTopTimer.Start();
    } else {
        m_keepTopTimer.Stop();
    }
}

/// Another window may have been raised above this one, and the window manager may have iconified it.
void Form1::KeepTop_Timer() {
    Keeper().Settle();
    ShowThrough();
    if (QApplication::activePopupWidget() == nullptr && IsLost()) {
        ShowAgain();
    }
    if (!IsCovered()) {
        m_parts.stack.PutAbove(winId());
    }
}

/// Whether a menu or window of this program that the user is working with covers this one.
bool Form1::IsCovered() const {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return QApplication::activePopupWidget() != nullptr ||
           std::any_of(windows.begin(), windows.end(), [this](const QWidget* each) {
               return each != this && each->isVisible() && !each->isMinimized() &&
                      each->frameGeometry().intersects(frameGeometry());
           });
}

/// Qt counts an iconified window as visible. The window system is queried only if Qt has reported the window
/// as no longer exposed.
bool Form1::IsLost() const {
    return isMinimized() || (!IsExposed(*this) && m_parts.stack.IsLost(winId()));
}

/// Hides the window and shows it again. Deiconifying it instead would give it the focus under some window
/// managers.
void Form1::ShowAgain() {
    hide();
    Keeper().Unsettle();
    Declare();  // Qt maps the window again as soon as its state changes
    setWindowState(windowState() & ~Qt::WindowMinimized);
    move(Keeper().Position());
    show();
}

void Form1::Declare() {
    m_parts.stack.Declare(winId(), m_parts.further.face.inWindowSwitcher);
}

/// Once m_fitted is set, a window that is not exposed was iconified or lost, or it is on another workspace
/// because the window manager does not support windows on all of them. The window system is queried as well,
/// because Qt may not have been notified yet.
void Form1::ComeForward() {
    const bool wasHidden = m_hiding.IsHidden();
    m_hiding.Insist();
    if (m_storage.IsStored()) {
        m_storage.TakeBack();
    } else if (wasHidden || isMinimized() ||
               (m_fitted && (!IsExposed(*this) || m_parts.stack.IsLost(winId())))) {
        ShowAgain();
    } else {
        show();
    }
    if (wasHidden) {
        UpdateKeepTop();
    }
    const QRect primary = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint place = BroughtBack(geometry(), ScreenAreas(), primary).topLeft();
    if (place != pos()) {
        Keeper().Settle();  // this position is intentional, not the stored one
        move(place);
    }
    m_parts.stack.BringToUser(winId());
    m_parts.stack.PutAbove(winId());
}

void Form1::ComeForwardWithMenu() {
    ComeForward();
    activateWindow();  // the only time that the window requests the focus
    OpenMenuByKey();
}

}  // namespace tickwell::shell
