// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/monkey.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMenu>
#include <QScopeGuard>
#include <QThread>
#include <algorithm>

#include "monkey/trail.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTidyEvery = 400;      // actions
constexpr int kThoroughEvery = 12;   // checks
constexpr int kMostTidySteps = 300;  // far more than the number of windows
constexpr qint64 kSlice = 20;        // time advances in steps of at least this, in ms
constexpr int kSlices = 50;          // number of steps of a long wait

QWidget* WindowNamed(const QWidgetList& windows, QStringView name) {
    for (QWidget* window : windows) {
        if (window->objectName() == name) {
            return window;
        }
    }
    return nullptr;
}

/// An error while the box of another one is open: with a clock that is years off, several readings can
/// overflow together, and a timer, an alarm or a search can be refused meanwhile. Merging can be switched on
/// without a folder.
bool IsExpected(const QString& warning) {
    if (warning == u"the days are not merged: フォルダーが選ばれていません。") {
        return true;
    }
    static const QString dropped = u"not shown, because another error is: "_s;
    static const QStringList reasons{u"オーバーフローしました。"_s, u"タイマーは20個まで"_s,
                                     u"タイマーの時間を指定"_s,     u"アラームは50個まで"_s,
                                     u"アラームを鳴らす"_s,         u"型が一致しません。"_s};
    return std::any_of(reasons.begin(), reasons.end(),
                       [&warning](const QString& reason) { return warning.startsWith(dropped + reason); });
}

/// Windows that are only hidden on closing and reused; menus belong to the main window.
bool MayStay(const QWidget& window) {
    static const QStringList names{u"Form1"_s,      u"StopForm"_s,     u"TimerForm"_s,  u"Form8"_s,
                                   u"TimersForm"_s, u"TimersNotice"_s, u"AlarmsForm"_s, u"AlarmNotice"_s};
    const bool isOurs = window.parentWidget() != nullptr && MayStay(*window.parentWidget()->window());
    return names.contains(window.objectName()) || isOurs || window.windowType() == Qt::ToolTip;
}

}  // namespace

QStringList Monkey::Run(int deeds) {
    m_wanted = deeds;
    const auto connection = connect(QAbstractEventDispatcher::instance(),
                                    &QAbstractEventDispatcher::aboutToBlock, this, &Monkey::Idle);
    while (m_complaints.isEmpty() && m_done < m_wanted) {
        try {
            m_world.Start(m_random);
        } catch (const RunTimeError& error) {
            Complain({u"the program does not start: " + error.Reason()});
            break;
        }
        ++m_starts;
        Trail::Note(u"start the program, %1"_s.arg(m_world.Now().time.Now().toString(Qt::ISODate)));
        QCoreApplication::exec();
        if (m_complaints.isEmpty()) {
            LeaveProgram();
        }
    }
    disconnect(connection);
    return m_complaints;
}

/// Called when the event loop has nothing left to do.
void Monkey::Idle() {
    // Otherwise the dispatcher would block. Done on return, because the actions below may consume an earlier
    // wake-up.
    const auto goOn = qScopeGuard([] { QAbstractEventDispatcher::instance()->wakeUp(); });
    if (!m_complaints.isEmpty()) {
        QCoreApplication::quit();
        return;
    }
    const Machine& machine = m_world.Now();
    if (!machine.hasClosed && !machine.state.started.dayDatabase.IsOpen()) {
        return;  // a compaction is running; no time passes until it ends
    }
    if (m_wait > 0) {
        const qint64 passing = std::min(m_wait, m_slice);
        m_wait -= passing;
        m_quiet += passing;
        m_world.Now().Pass(passing);
        return;
    }
    Look();
    if (!m_complaints.isEmpty()) {
        return;
    }
    const bool isAtEnd = m_done >= m_wanted;
    if (m_tidying != Tidying::None || ((m_done % kTidyEvery == 0 || isAtEnd) && !m_hasTidied)) {
        return Tidy();
    }
    if (isAtEnd) {
        Trail::Note(u"leave"_s);
        Hands::Close(*WindowNamed(Hands::Windows(), u"Form1"));
        return;
    }
    m_hasTidied = false;
    ++m_done;
    m_deeds.DoOne();
    m_wait = m_deeds.TakeWait();
    m_slice = std::max(kSlice, m_wait / kSlices);
    m_quiet = m_deeds.WasIdle() ? m_quiet : 0;
}

void Monkey::Look() {
    Complaints complaints;
    CheckScene(Scene(m_world, m_quiet, ++m_looks % kThoroughEvery == 0), complaints);
    for (auto met = complaints.AllMet().begin(); met != complaints.AllMet().end(); ++met) {
        m_met[met.key()] += met.value();
    }
    for (const QString& warning : Trail::TakeWarnings()) {
        complaints.Unless(IsExpected(warning), u"Qt warns: " + warning);
    }
    Complain(complaints.All());
}

/// Closes all windows except the main window; then the menu must open and close as after the start, and no
/// other window may exist.
void Monkey::Tidy() {
    m_quiet = 0;
    const QWidgetList windows = Hands::Windows();
    if (m_world.Now().hasClosed) {  // only message boxes can still be open
        m_tidying = Tidying::None;
        return windows.isEmpty() ? EndTidying() : PutAwayOne(windows);
    }
    QWidget* form = WindowNamed(windows, u"Form1");
    switch (m_tidying) {
        case Tidying::None:
            m_tidying = Tidying::Windows;
            m_tidySteps = 0;
            break;
        case Tidying::Windows:
            if (form != nullptr && windows.size() == 1 && QThread::currentThread()->loopLevel() == 1) {
                m_tidying = Tidying::OpenMenu;
            } else {
                PutAwayOne(windows);
            }
            break;
        case Tidying::OpenMenu:
            Trail::Note(u"tidy: open the menu"_s);
            m_deeds.TheHands().Click(*form, form->rect().center(), Qt::RightButton, {});
            m_tidying = Tidying::CloseMenu;
            break;
        case Tidying::CloseMenu:
            if (qobject_cast<QMenu*>(QApplication::activePopupWidget()) == nullptr) {
                Complain({u"the menu does not open any more"_s});
            }
            Trail::Note(u"tidy: close the menu"_s);
            Hands::Key(Qt::Key_Escape, {});
            EndTidying();
            break;
    }
}

/// Releases the mouse button, or closes one window: menus first, then windows by their close buttons. Finally
/// restores the main window from the notification area.
void Monkey::PutAwayOne(const QWidgetList& windows) {
    if (++m_tidySteps > kMostTidySteps) {
        QStringList left;
        for (const QWidget* window : windows) {
            left.append(Hands::PathOf(*window));
        }
        Complain({u"these windows cannot be put away: " + left.join(u' ')});
        return;
    }
    Hands& hands = m_deeds.TheHands();
    if (hands.IsPressed()) {
        Trail::Note(u"tidy: let go"_s);
        hands.ReleaseAnywhere();
        return;
    }
    if (QApplication::activePopupWidget() != nullptr) {
        Trail::Note(u"tidy: Esc"_s);
        Hands::Key(Qt::Key_Escape, {});
        return;
    }
    for (QWidget* window : windows) {
        if (window->objectName() != u"Form1" && !Hands::IsBlocked(*window)) {
            Trail::Note(u"tidy: close "_s + Hands::PathOf(*window));
            Hands::Close(*window);
            return;
        }
    }
    if (windows.isEmpty() && m_world.Now().tray.HasIcon()) {
        Trail::Note(u"tidy: take out of the notification area"_s);
        m_world.Now().tray.Click();
        return;
    }
    if (QThread::currentThread()->loopLevel() > 1) {  // a drag runs its own event loop
        Trail::Note(u"tidy: Esc"_s);
        Hands::Key(Qt::Key_Escape, {});
        return;
    }
    Complain({u"no window can be closed"_s});
}

void Monkey::EndTidying() {
    m_tidying = Tidying::None;
    m_hasTidied = true;
    Complaints complaints;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        complaints.Unless(MayStay(*window), u"left over: " + Hands::PathOf(*window));
    }
    CheckDatabase(m_world, complaints);
    Complain(complaints.All());
}

/// Checks the rules for a program that has ended.
void Monkey::LeaveProgram() {
    Complaints complaints;
    complaints.Unless(m_world.Now().hasClosed, u"the program has ended with its main window open"_s);
    complaints.Unless(!m_world.Now().tray.HasIcon(), u"the icon is left in the notification area"_s);
    complaints.Unless(m_world.Now().sound.OpenDevices() == 0, u"a sound device is left open"_s);
    CheckDatabase(m_world, complaints);
    CheckSettingsFile(m_world, complaints);
    m_tidying = Tidying::None;
    m_hasTidied = m_done >= m_wanted;
    m_wait = 0;
    m_quiet = 0;
    m_world.End();
    for (const QWidget* widget : QApplication::allWidgets()) {
        complaints.Unless(widget->windowType() == Qt::ToolTip || widget->windowType() == Qt::Desktop,
                          u"left over by the program: " + Hands::PathOf(*widget));
    }
    Complain(complaints.All());
}

void Monkey::Complain(const QStringList& complaints) {
    m_complaints.append(complaints);
}

}  // namespace tickwell
