// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/hands.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>
#include <utility>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kBlocked = "blockedByModalWindow";
constexpr int kKnownPages = 5;  // of the settings

QWindow* WindowOf(const QWidget& widget) {
    return widget.window()->windowHandle();
}

QPoint InWindow(const QWidget& widget, QPoint at) {
    const QPoint place = widget.mapTo(widget.window(), at);
    return place.isNull() ? QPoint(1, 0) : place;  // QTest takes a null point for the centre
}

/// The text that a keyboard sends with a key.
QString TextOf(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return u"\r"_s;
        case Qt::Key_Tab:
            return u"\t"_s;
        case Qt::Key_Escape:
            return u"\x1B"_s;
        case Qt::Key_Backspace:
            return u"\b"_s;
        case Qt::Key_Delete:
            return u"\x7F"_s;
        default:
            break;
    }
    if (key < Qt::Key_Space || key > Qt::Key_AsciiTilde || modifiers.testFlag(Qt::ControlModifier)) {
        return {};
    }
    const QString text = QChar(static_cast<ushort>(key));
    return modifiers.testFlag(Qt::ShiftModifier) ? text : text.toLower();
}

/// Unlike QTest::sendKeyEvent, this handles no other events before the key: they could destroy the window.
void SendKey(const QPointer<QWindow>& window, bool isPress, Qt::Key key, Qt::KeyboardModifiers modifiers,
             const QString& text) {
    if (window != nullptr && window->isVisible()) {
        QTest::simulateEvent(window, isPress, key, modifiers, text,
                             false);  // handles other events afterwards
    }
}

}  // namespace

Hands::Hands() {
    qApp->installEventFilter(this);
}

Hands::~Hands() {
    qApp->removeEventFilter(this);
}

/// Tracks the events that Qt sends to each window when a modal window opens or closes. Also disables those
/// pages of the settings dialog whose options the rules do not know, because the rules describe the default
/// behaviour.
bool Hands::eventFilter(QObject* watched, QEvent* event) {
    auto* pages = qobject_cast<QTabWidget*>(watched);
    if (pages != nullptr && event->type() == QEvent::Show) {
        for (int page = kKnownPages; page < pages->count(); ++page) {
            pages->setTabEnabled(page, false);
        }
    }
    if (watched->isWindowType() &&
        (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)) {
        watched->setProperty(kBlocked, event->type() == QEvent::WindowBlocked);
    }
    return false;
}

QWidgetList Hands::Windows() {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    QWidgetList windows;
    for (const QWindow* window : QGuiApplication::allWindows()) {  // topLevelWidgets() is unordered
        for (QWidget* widget : widgets) {
            if (widget->windowHandle() == window && widget->isVisible()) {
                windows.append(widget);
            }
        }
    }
    return windows;
}

bool Hands::IsBlocked(const QWidget& window) {
    return WindowOf(window) != nullptr && WindowOf(window)->property(kBlocked).toBool();
}

QWidgetList Hands::PartsOf(QWidget& window) {
    QWidgetList parts{&window};
    for (QWidget* part : window.findChildren<QWidget*>()) {
        if (part->isVisible() && part->window() == &window && !part->size().isEmpty()) {
            parts.append(part);
        }
    }
    return parts;
}

QString Hands::PathOf(const QWidget& widget) {
    const auto nameOf = [](const QWidget& each) {
        return each.objectName().isEmpty() ? QString::fromLatin1(each.metaObject()->className())
                                           : each.objectName();
    };
    const QWidget& window = *widget.window();
    return &widget == &window ? nameOf(window) : nameOf(window) + u'/' + nameOf(widget);
}

void Hands::Press(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    QWindow* window = WindowOf(widget);
    if (window == nullptr) {
        return;
    }
    const QPointer<QWidget> pressed(&widget);
    if (IsPressed()) {
        ReleaseAnywhere();
    }
    if (pressed == nullptr || WindowOf(*pressed) != window) {
        return;  // the release has closed the window
    }
    m_pressed = button;
    m_pressedOn = &widget;
    if (!IsBlocked(*widget.window()) && widget.window()->windowType() != Qt::Popup) {
        window->requestActivate();
    }
    QTest::mousePress(window, button, modifiers, InWindow(widget, at));
}

void Hands::Move(QWidget& widget, QPoint at) {
    if (QWindow* window = WindowOf(widget)) {
        QTest::mouseMove(window, InWindow(widget, at));
    }
}

void Hands::Release(QWidget& widget, QPoint at) {
    const Qt::MouseButton button = std::exchange(m_pressed, Qt::NoButton);
    if (QWindow* window = WindowOf(widget); window != nullptr && button != Qt::NoButton) {
        QTest::mouseRelease(window, button, {}, InWindow(widget, at));
    }
}

void Hands::ReleaseAnywhere() {
    if (m_pressedOn != nullptr && WindowOf(*m_pressedOn) != nullptr) {
        Release(*m_pressedOn, m_pressedOn->rect().center());
        return;
    }
    const Qt::MouseButton button = std::exchange(m_pressed, Qt::NoButton);
    const QWindowList windows = QGuiApplication::allWindows();  // including hidden windows
    if (!windows.isEmpty() && button != Qt::NoButton) {
        QTest::mouseRelease(windows.constLast(), button, {}, QPoint(1, 0));
    }
}

void Hands::Click(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWidget> clicked(&widget);
    Press(widget, at, button, modifiers);
    if (clicked != nullptr) {
        Release(*clicked, at);
    } else {
        ReleaseAnywhere();
    }
}

void Hands::DoubleClick(QWidget& widget, QPoint at) {
    const QPointer<QWidget> clicked(&widget);
    if (IsPressed()) {
        ReleaseAnywhere();
    }
    if (clicked == nullptr) {
        return;
    }
    if (QWindow* window = WindowOf(widget)) {
        QTest::mouseDClick(window, Qt::LeftButton, {}, InWindow(widget, at));
    }
}

void Hands::Turn(QWidget& widget, QPoint at, QPoint angle, Qt::KeyboardModifiers modifiers) {
    if (QWindow* window = WindowOf(widget)) {
        const QPoint place = InWindow(widget, at);
        QWheelEvent event(place, window->mapToGlobal(place), {}, angle, QGuiApplication::mouseButtons(),
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window, &event);
    }
}

void Hands::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const QWidget* popup = QApplication::activePopupWidget();  // receives the keys of all windows
    const QPointer<QWindow> window = popup != nullptr ? WindowOf(*popup) : QGuiApplication::focusWindow();
    for (const bool isPress : {true, false}) {
        SendKey(window, isPress, key, modifiers, TextOf(key, modifiers));
    }
}

void Hands::Type(const QString& text) {
    for (const QChar letter : text) {
        const QPointer<QWindow> window = QGuiApplication::focusWindow();
        for (const bool isPress : {true, false}) {
            SendKey(window, isPress, Qt::Key_unknown, {}, QString(letter));
        }
    }
}

void Hands::Commit(const QString& text) {
    QObject* receiver = QGuiApplication::focusObject();
    auto* widget = qobject_cast<QWidget*>(receiver);
    if (widget != nullptr && widget->testAttribute(Qt::WA_InputMethodEnabled)) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(receiver, &event);
    }
}

void Hands::Close(QWidget& window) {
    if (!IsBlocked(window)) {
        window.close();
    }
}

}  // namespace tickwell
