// SPDX-License-Identifier: GPL-3.0-or-later
// Actions with mouse and keyboard.
#include "monkey/deeds.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <array>
#include <numeric>

#include "monkey/odd_texts.h"
#include "monkey/trail.h"
#include "support/child.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kKeys{
    Qt::Key_Tab,      Qt::Key_Tab,       Qt::Key_Space,
    Qt::Key_Space,    Qt::Key_Return,    Qt::Key_Enter,
    Qt::Key_Escape,   Qt::Key_Up,        Qt::Key_Down,
    Qt::Key_Left,     Qt::Key_Right,     Qt::Key_PageUp,
    Qt::Key_PageDown, Qt::Key_Home,      Qt::Key_End,
    Qt::Key_Delete,   Qt::Key_Backspace, Qt::Key_F1,
    Qt::Key_F3,       Qt::Key_F4,        Qt::Key_F6,
    Qt::Key_F10,      Qt::Key_Menu,      Qt::Key_Insert,
    Qt::Key_A,        Qt::Key_C,         Qt::Key_V,
    Qt::Key_X,        Qt::Key_Z,         Qt::Key_F,
    Qt::Key_S,        Qt::Key_T,         Qt::Key_I,
    Qt::Key_0,        Qt::Key_1,         Qt::Key_9,
    Qt::Key_Plus,     Qt::Key_Minus,     Qt::Key_Backtab,
    Qt::Key_Alt,      Qt::Key_Clear,     Qt::Key_Zenkaku_Hankaku,
};

QString At(QPoint place) {
    return u" at %1,%2"_s.arg(place.x()).arg(place.y());
}

/// The text on one line, with every unprintable UTF-16 unit escaped, cut after 40 units.
QString Shown(const QString& text) {
    QString shown;
    for (const QChar letter : text.left(40)) {
        shown += letter.isPrint() ? QString(letter) : u"\\u%1"_s.arg(letter.unicode(), 4, 16, QChar(u'0'));
    }
    return shown;
}

}  // namespace

void Deeds::DoOne() {
    struct Kind {
        int weight;
        void (Deeds::*deed)();
    };
    static constexpr std::array kKinds{
        Kind{24, &Deeds::ClickSomewhere},   Kind{3, &Deeds::DoubleClickSomewhere},
        Kind{4, &Deeds::HoldSomewhere},     Kind{5, &Deeds::DragSomewhere},
        Kind{4, &Deeds::TurnTheWheel},      Kind{16, &Deeds::PressAKey},
        Kind{6, &Deeds::TypeAText},         Kind{5, &Deeds::AnswerABox},
        Kind{9, &Deeds::ChooseFromTheMenu}, Kind{10, &Deeds::PressAButton},
        Kind{12, &Deeds::PressOnPurpose},   Kind{3, &Deeds::ChooseATab},
        Kind{2, &Deeds::ExchangeDays},      Kind{4, &Deeds::CloseAWindow},
        Kind{1, &Deeds::ShrinkAWindow},     Kind{18, &Deeds::Wait},
        Kind{1, &Deeds::SetTheClock},       Kind{2, &Deeds::ChangeTheDisc},
        Kind{2, &Deeds::ChangeTheMachine},  Kind{1, &Deeds::StartAgain},
        Kind{2, &Deeds::SendACommand},      Kind{2, &Deeds::PressAMediaKey},
        Kind{1, &Deeds::ChangeTheLook},     Kind{1, &Deeds::UseTheTray},
    };
    static constexpr int kTogether = std::accumulate(
        kKinds.begin(), kKinds.end(), 0, [](int sum, const Kind& kind) { return sum + kind.weight; });
    m_wasIdle = false;
    if (LeaveFileDialog()) {
        return;
    }
    if (m_hands.IsPressed() && !m_random.OneIn(3)) {
        return GoOnDragging();
    }
    int left = m_random.Number(kTogether);
    for (const Kind& kind : kKinds) {
        if (left < kind.weight) {
            return (this->*kind.deed)();
        }
        left -= kind.weight;
    }
}

/// Usually the open popup or the active window; now and then a blocked one.
QWidget* Deeds::SomeWindow() {
    const QWidgetList windows = Hands::Windows();
    if (windows.isEmpty()) {
        return nullptr;
    }
    QWidgetList usable;
    for (QWidget* window : windows) {
        if (!Hands::IsBlocked(*window)) {
            usable.append(window);
        }
    }
    if (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr && !m_random.OneIn(6)) {
        return popup;
    }
    if (QWidget* active = QApplication::activeWindow();
        active != nullptr && active->isVisible() && m_random.OneIn(2)) {
        return active;
    }
    return usable.isEmpty() || m_random.OneIn(20) ? m_random.Pick(windows) : m_random.Pick(usable);
}

QWidget* Deeds::SomePart(QWidget& window) {
    return m_random.Pick(Hands::PartsOf(window));
}

QPoint Deeds::SomePlaceIn(const QWidget& part) {
    return {m_random.Number(std::max(1, part.width())), m_random.Number(std::max(1, part.height()))};
}

Qt::KeyboardModifiers Deeds::SomeModifiers() {
    constexpr std::array<Qt::KeyboardModifier, 3> kSome{Qt::ShiftModifier, Qt::ControlModifier,
                                                        Qt::AltModifier};
    Qt::KeyboardModifiers modifiers;
    if (m_random.OneIn(5)) {
        modifiers |= m_random.Pick(kSome);
    }
    if (m_random.OneIn(20)) {
        modifiers |= m_random.Pick(kSome);
    }
    return modifiers;
}

void Deeds::ClickSomewhere() {
    QWidget* window = SomeWindow();
    if (window == nullptr) {
        return Wait();
    }
    constexpr std::array kButtons{Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,  Qt::LeftButton,
                                  Qt::LeftButton, Qt::RightButton, Qt::RightButton, Qt::MiddleButton};
    QWidget& part = *SomePart(*window);
    const QPoint at = SomePlaceIn(part);
    const Qt::MouseButton button = m_random.Pick(kButtons);
    const Qt::KeyboardModifiers modifiers = m_random.OneIn(10) ? SomeModifiers() : Qt::KeyboardModifiers();
    Trail::Note(u"click %1 with %2"_s.arg(Hands::PathOf(part)).arg(button) + At(at));
    m_hands.Click(part, at, button, modifiers);
}

void Deeds::DoubleClickSomewhere() {
    QWidget* window = SomeWindow();
    if (window == nullptr) {
        return Wait();
    }
    QWidget& part = *SomePart(*window);
    const QPoint at = SomePlaceIn(part);
    Trail::Note(u"double click " + Hands::PathOf(part) + At(at));
    m_hands.DoubleClick(part, at);
}

/// Presses without releasing, for buttons that repeat or act while they are held.
void Deeds::HoldSomewhere() {
    QWidget* window = SomeWindow();
    if (window == nullptr) {
        return Wait();
    }
    QWidget& part = *SomePart(*window);
    const QPoint at = SomePlaceIn(part);
    m_wait = m_random.Between(1, 1500);
    Trail::Note(u"hold %1 for %2 ms"_s.arg(Hands::PathOf(part)).arg(m_wait) + At(at));
    m_hands.Press(part, at, Qt::LeftButton, {});
}

void Deeds::DragSomewhere() {
    QWidget* window = SomeWindow();
    if (window == nullptr) {
        return Wait();
    }
    QWidget& part = *SomePart(*window);
    const QPoint at = SomePlaceIn(part);
    Trail::Note(u"drag from " + Hands::PathOf(part) + At(at));
    const QPointer<QWidget> dragged(&part);
    m_hands.Press(part, at, Qt::LeftButton, {});
    for (int moves = m_random.Between(1, 4); moves > 0 && dragged != nullptr; --moves) {
        Hands::Move(*dragged, at + QPoint(m_random.Between(-200, 200), m_random.Between(-200, 200)));
    }
}

void Deeds::GoOnDragging() {
    QWidget* window = SomeWindow();
    if (window == nullptr || m_random.OneIn(2)) {
        Trail::Note(u"let go"_s);
        m_hands.ReleaseAnywhere();
        return;
    }
    const QPoint at = SomePlaceIn(*window);
    const bool goes = m_random.OneIn(2);
    Trail::Note((goes ? u"let go over "_s : u"move over "_s) + Hands::PathOf(*window) + At(at));
    const QPointer<QWidget> over(window);
    Hands::Move(*over, at);
    if (goes && over != nullptr) {
        m_hands.Release(*over, at);
    }
}

void Deeds::TurnTheWheel() {
    QWidget* window = SomeWindow();
    if (window == nullptr) {
        return Wait();
    }
    QWidget& part = *SomePart(*window);
    const int notches = m_random.Between(-5, 5) * 120;
    const QPoint angle = m_random.OneIn(6) ? QPoint(notches, 0) : QPoint(0, notches);
    Trail::Note(u"turn the wheel over %1 by %2"_s.arg(Hands::PathOf(part)).arg(notches));
    Hands::Turn(part, SomePlaceIn(part), angle, m_random.OneIn(4) ? Qt::ControlModifier : Qt::NoModifier);
}

void Deeds::PressAKey() {
    const Qt::Key key = m_random.Pick(kKeys);
    const Qt::KeyboardModifiers modifiers = SomeModifiers();
    Trail::Note(u"key %1 with %2"_s.arg(key, 0, 16).arg(modifiers.toInt(), 0, 16));
    Hands::Key(key, modifiers);
}

void Deeds::TypeAText() {
    const QString text = OddText(m_random);
    const bool atOnce = m_random.OneIn(2);
    Trail::Note((atOnce ? u"commit "_s : u"type "_s) + Shown(text));
    if (atOnce) {
        Hands::Commit(text);
    } else {
        Hands::Type(text.left(40));
    }
}

void Deeds::AnswerABox() {
    for (QWidget* window : Hands::Windows()) {
        auto* box = qobject_cast<QMessageBox*>(window);
        if (box == nullptr || Hands::IsBlocked(*box)) {
            continue;
        }
        QAbstractButton& button = *m_random.Pick(box->buttons());
        Trail::Note(u"answer %1 by %2"_s.arg(box->windowTitle(), button.text()));
        m_hands.Click(button, button.rect().center(), Qt::LeftButton, {});
        return;
    }
    PressAButton();
}

/// An item of the main window's menu. The exit item is chosen less often than the others.
void Deeds::ChooseFromTheMenu() {
    QWidget* form = nullptr;
    for (QWidget* window : Hands::Windows()) {
        form = window->objectName() == u"Form1" ? window : form;
    }
    if (form == nullptr || Hands::IsBlocked(*form)) {
        return PressAButton();
    }
    const auto button = m_random.OneIn(2) ? Qt::LeftButton : Qt::RightButton;
    QStringList names;
    for (const QAction* item : ChildOf<QMenu>(*form, u"Menu"_s).actions()) {
        if (item->isEnabled() && item->isVisible() && !item->isSeparator()) {
            names.append(item->objectName());
        }
    }
    QString name = m_random.Pick(names);
    name = name == u"Menu20" && !m_random.OneIn(4) ? names.constFirst() : name;
    Trail::Note(u"choose "_s + name);
    const QPointer<QWidget> opened(form);
    m_hands.Click(*form, form->rect().center(), button, {});
    auto* menu = opened != nullptr ? opened->findChild<QMenu*>(u"Menu"_s) : nullptr;
    auto* item = menu != nullptr && menu->isVisible() ? menu->findChild<QAction*>(name) : nullptr;
    if (item != nullptr && item->isEnabled()) {
        m_hands.Click(*menu, menu->actionGeometry(item).center(), Qt::LeftButton, {});
    }
}

/// Clicks an enabled button: most functions of a window are reached through its buttons.
void Deeds::PressAButton() {
    QWidget* window = SomeWindow();
    QWidgetList buttons;
    for (QWidget* part : window != nullptr ? Hands::PartsOf(*window) : QWidgetList()) {
        if (qobject_cast<QAbstractButton*>(part) != nullptr && part->isEnabled()) {
            buttons.append(part);
        }
    }
    if (buttons.isEmpty()) {
        return ClickSomewhere();
    }
    QWidget& button = *m_random.Pick(buttons);
    Trail::Note(u"press "_s + Hands::PathOf(button));
    m_hands.Click(button, QPoint(std::min(8, button.width() / 2), button.height() / 2), Qt::LeftButton, {});
}

/// Clicks one of the buttons that lead to other windows and states, because random clicks rarely hit several
/// of them in sequence.
void Deeds::PressOnPurpose() {
    static const QStringList leading{
        u"StopForm/Command1"_s,    u"StopForm/Command2"_s,     u"StopForm/Command3"_s,
        u"TimerForm/Command1"_s,   u"Form5/Command6"_s,        u"Form5/Command9"_s,
        u"Form5/Command10"_s,      u"Form5/Command11"_s,       u"Form5/Command11"_s,
        u"Form5/Command12"_s,      u"Form5/Option1(0)"_s,      u"Form5/Command7(2)"_s,
        u"Form6/Command1"_s,       u"Form9/Command1"_s,        u"Form9/Option2(0)"_s,
        u"Form10/Command3"_s,      u"Form10/Command1"_s,       u"Form2/Command1"_s,
        u"Form2/Command4"_s,       u"CDForm/Command1(2)"_s,    u"Form8/Command1"_s,
        u"StylePicker/Command1"_s, u"Form6/Option2(0)"_s,      u"Form6/Option2(1)"_s,
        u"Form6/Option2(2)"_s,     u"Form6/Check2"_s,          u"Form9/Option1(0)"_s,
        u"Form9/Option3(1)"_s,     u"Form9/Option3(2)"_s,      u"Form2/Option3(1)"_s,
        u"Form2/Option3(2)"_s,     u"Form2/Option1(1)"_s,      u"Form5/Command11"_s,
        u"Form5/Command11"_s,      u"Form5/Command12"_s,       u"TimerForm/Command4"_s,
        u"TimersForm/Command1"_s,  u"TimersForm/Command4"_s,   u"TimersForm/Command5"_s,
        u"TimersForm/Preset(0)"_s, u"TimersNotice/Command2"_s, u"TimerForm/Command5"_s,
        u"AlarmsForm/Command1"_s,  u"AlarmsForm/Command2"_s,   u"AlarmsForm/Check4"_s,
        u"AlarmNotice/Command2"_s, u"Form12/Command1"_s,       u"Form12/Command4"_s,
        u"Form12/Check1"_s,        u"Form12/ListView1"_s,      u"Form13/Check2"_s};
    QWidgetList buttons;
    for (QWidget* window : Hands::Windows()) {
        if (Hands::IsBlocked(*window)) {
            continue;
        }
        for (QWidget* part : Hands::PartsOf(*window)) {
            if (part->isEnabled() && leading.contains(Hands::PathOf(*part))) {
                buttons.append(part);
            }
        }
    }
    if (buttons.isEmpty()) {
        return ChooseFromTheMenu();
    }
    QWidget& button = *m_random.Pick(buttons);
    Trail::Note(u"press on purpose "_s + Hands::PathOf(button));
    m_hands.Click(button, QPoint(std::min(8, button.width() / 2), button.height() / 2), Qt::LeftButton, {});
}

void Deeds::ChooseATab() {
    QWidget* window = SomeWindow();
    auto* bar = window != nullptr ? window->findChild<QTabBar*>() : nullptr;
    if (bar == nullptr || !bar->isVisible()) {
        return PressOnPurpose();
    }
    const int tab = m_random.Number(bar->count());
    Trail::Note(u"tab %1 of "_s.arg(tab) + Hands::PathOf(*window));
    m_hands.Click(*bar, bar->tabRect(tab).center(), Qt::LeftButton, {});
}

/// Prefers the help window and the about box, in which there is little else to test.
void Deeds::CloseAWindow() {
    QWidget* window = SomeWindow();
    for (QWidget* each : Hands::Windows()) {
        const bool isToRead = each->objectName() == u"HelpWindow" || each->objectName() == u"frmAbout";
        window = isToRead && m_random.OneIn(2) ? each : window;
    }
    if (window == nullptr || (window->objectName() == u"Form1" && !m_random.OneIn(8))) {
        return Wait();
    }
    Trail::Note(u"close "_s + Hands::PathOf(*window));
    Hands::Close(*window);
}

void Deeds::ShrinkAWindow() {
    QWidget* window = SomeWindow();
    if (window == nullptr || window->windowType() == Qt::Popup || window->objectName() == u"Form1") {
        return Wait();
    }
    const bool isSmall = window->isMinimized();
    Trail::Note((isSmall ? u"take back "_s : u"shrink "_s) + Hands::PathOf(*window));
    window->setWindowState(isSmall ? Qt::WindowNoState : Qt::WindowMinimized);
}

}  // namespace tickwell
