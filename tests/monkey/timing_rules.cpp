// SPDX-License-Identifier: GPL-3.0-or-later
// Stopwatch and timer: captions and enabled state of their buttons, and the reading while they run.
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <algorithm>
#include <limits>
#include <optional>

#include "core/duration_text.h"
#include "lines/moving_word.h"
#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kFrame = 17;  // ms; a running reading is refreshed once per frame

bool FitsTick(qint64 milliseconds) {
    return milliseconds >= std::numeric_limits<qint32>::min() &&
           milliseconds <= std::numeric_limits<qint32>::max();
}

void CheckStopwatch(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"StopForm"_s);
    if (form == nullptr) {
        return;
    }
    const timing::StopwatchState& state = scene.Now().state.stopwatch;
    const bool running = state.StopwatchRunning;
    complaints.Met(running ? u"StopForm running"_s : u"StopForm stopped"_s);
    const QString upper = ChildOf<QPushButton>(*form, u"Command1"_s).text();
    const QString lower = ChildOf<QPushButton>(*form, u"Command2"_s).text();
    complaints.Unless(upper == (running ? u"ストップ" : u"スタート"),
                      u"the stopwatch's Command1 says " + upper);
    complaints.Unless(lower == (running ? u"ラップ" : u"リセット"),
                      u"the stopwatch's Command2 says " + lower);
    CheckEnabled(*form, {u"Command1"_s, u"Command2"_s, u"Command4"_s, u"Text1"_s}, true, complaints);
    const bool isPrinting = scene.HasBox(u"印刷"_s) || scene.Now().printer.isPrinting;
    CheckEnabled(*form, {u"Command3"_s}, !isPrinting, complaints);
    const auto& list = ChildOf<QPlainTextEdit>(*form, u"Text1"_s);
    const auto laps = list.toPlainText().count(u"Lapse"_s);
    complaints.Unless(laps == state.StopwatchLapCount,
                      u"%1 laps stand there, %2 were taken"_s.arg(laps).arg(state.StopwatchLapCount));
    complaints.Unless(list.isReadOnly(), u"the list of laps can be written to"_s);
}

void CheckTimer(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"TimerForm"_s);
    if (form == nullptr) {
        return;
    }
    const timing::CountdownState& state = scene.Now().state.countdown;
    const bool running = state.CountdownRunning;
    complaints.Met(running ? u"TimerForm running"_s : u"TimerForm stopped"_s);
    const QString caption = ChildOf<QPushButton>(*form, u"Command1"_s).text();
    complaints.Unless(caption == (running ? u"ストップ" : u"スタート"),
                      u"the timer's Command1 says " + caption);
    CheckEnabled(*form, {u"Command1"_s, u"Command3"_s}, true, complaints);
    CheckEnabled(*form,
                 {u"Frame1"_s, u"UpDown1"_s, u"UpDown2"_s, u"UpDown3"_s, u"Label1"_s, u"Label2"_s,
                  u"Label3"_s, u"Check1"_s, u"Command2"_s, u"Text1"_s, u"Text2"_s, u"Text3"_s},
                 !running, complaints);
    const auto number = [form](const QString& name) { return ChildOf<QSpinBox>(*form, name).value(); };
    const qint32 entry =
        (number(u"UpDown1"_s) * 3600 + number(u"UpDown2"_s) * 60 + number(u"UpDown3"_s)) * 1000;
    complaints.Unless(entry == state.CountdownDuration,
                      u"the timer shows %1 ms and is set to %2"_s.arg(entry).arg(state.CountdownDuration));
    complaints.Unless(entry > 0, u"the timer is set to nothing"_s);
    complaints.Unless(ChildOf<QCheckBox>(*form, u"Check1"_s).isChecked() == state.CountdownRepeat,
                      u"the timer's repeat"_s);
}

/// The reading that the running tool must show now, or nullopt if it shows none, or if the tick count has
/// left its range in the meantime, which stops the reading.
std::optional<qint32> ReadingOf(const Machine& now) {
    const qint32 function = now.state.started.settings.function;
    const timing::StopwatchState& watch = now.state.stopwatch;
    const timing::CountdownState& countdown = now.state.countdown;
    qint64 passed = 0;
    qint64 reading = 0;
    if (function == kFunctionStopwatch && watch.StopwatchRunning) {
        passed = qint64{now.time.Tick()} - watch.StopwatchStart;
        reading = passed + watch.StopwatchElapsed;
    } else if (function == kFunctionTimer && countdown.CountdownRunning && countdown.TimerShownOnMain) {
        passed = qint64{now.time.Tick()} - countdown.CountdownStart;
        reading = std::max<qint64>(0, countdown.CountdownDuration - passed);
    } else {
        return std::nullopt;
    }
    return FitsTick(passed) && FitsTick(reading) ? std::optional(static_cast<qint32>(reading)) : std::nullopt;
}

/// Whether the text is a reading from within the last frame. Earlier readings of the countdown are larger.
bool IsReadingOfLastFrame(const QString& text, const Machine& now, qint32 reading) {
    const qint32 older = now.state.started.settings.function == kFunctionTimer ? 1 : -1;
    for (qint32 age = 0; age <= kFrame; ++age) {
        if (text == ElapsedText(reading + older * age)) {
            return true;
        }
    }
    return false;
}

/// Checks that the reading visible in the main window is the current one.
void CheckReading(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"Form1"_s);
    const auto reading = ReadingOf(scene.Now());
    if (form != nullptr && form->isVisible() && reading && scene.Quiet() >= 2 * kFrame) {
        const QString text = ChildOf<lines::MovingWord>(*form, u"MovingWord2"_s).Text();
        complaints.Unless(IsReadingOfLastFrame(text, scene.Now(), *reading),
                          u"the reading is %1 and should be %2"_s.arg(text, ElapsedText(*reading)));
    }
}

void CheckNotice(const Scene& scene, Complaints& complaints) {
    if (const QWidget* form = scene.Window(u"Form8"_s)) {
        complaints.Met(u"Form8"_s);
        complaints.Unless(ChildOf<QLabel>(*form, u"Label1"_s).text() == u"指定の時間が経過しました",
                          u"the notice's text"_s);
        CheckEnabled(*form, {u"Command1"_s}, true, complaints);
    }
}

/// The list of timers: the countdown first, which cannot be removed, and no more rows than there may be.
void CheckTimers(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"TimersForm"_s);
    if (form == nullptr) {
        return;
    }
    const auto& table = ChildOf<QTableWidget>(*form, u"List1"_s);
    const int timers = table.rowCount() - 1;
    complaints.Met(u"TimersForm with %1 timers"_s.arg(timers));
    complaints.Unless(timers >= 0 && timers <= kMostTimers, u"%1 timers are listed"_s.arg(timers));
    complaints.Unless(table.item(0, 0)->text() == u"メイン",
                      u"the first timer is " + table.item(0, 0)->text());
    CheckEnabled(*form, {u"Command4"_s}, table.currentRow() > 0, complaints);
    CheckEnabled(*form, {u"Command5"_s}, timers < kMostTimers, complaints);
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString state = table.item(row, 3)->text();
        complaints.Met(u"a timer is "_s + state.section(u'（', 0, 0));
        complaints.Unless(state.startsWith(u"動作中") == !table.item(row, 2)->text().isEmpty(),
                          u"timer %1 ends at %2 and is %3"_s.arg(row).arg(table.item(row, 2)->text(), state));
    }
}

void CheckTimersNotice(const Scene& scene, Complaints& complaints) {
    if (const QWidget* form = scene.Window(u"TimersNotice"_s)) {
        const int lines = ChildOf<QListWidget>(*form, u"List1"_s).count();
        complaints.Met(u"TimersNotice"_s);
        complaints.Unless(lines > 0, u"the notice of timers is empty"_s);
        CheckEnabled(*form, {u"Command1"_s, u"Command2"_s}, true, complaints);
    }
}

/// The list of alarms: what can be done with the selected one, and no more rows than there may be.
void CheckAlarms(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"AlarmsForm"_s);
    if (form == nullptr) {
        return;
    }
    const auto& table = ChildOf<QTableWidget>(*form, u"List1"_s);
    const int alarms = table.rowCount();
    complaints.Met(u"AlarmsForm with %1 alarms"_s.arg(alarms));
    complaints.Unless(alarms <= kMostAlarms, u"%1 alarms are listed"_s.arg(alarms));
    const bool isSelected = table.currentRow() >= 0;
    complaints.Unless(isSelected == (alarms > 0), u"no alarm is selected"_s);
    CheckEnabled(*form, {u"Command2"_s, u"Command3"_s, u"Check3"_s}, isSelected, complaints);
    CheckEnabled(*form, {u"Command1"_s}, alarms < kMostAlarms, complaints);
    for (int row = 0; row < alarms; ++row) {
        const QString state = table.item(row, 4)->text();
        const bool rings = table.item(row, 3)->text() != u"なし";
        complaints.Met(u"an alarm is "_s + state.section(u'（', 0, 0));
        complaints.Unless(state.startsWith(u"入") || !rings,
                          u"alarm %1 is %2 and rings"_s.arg(row).arg(state));
    }
}

void CheckAlarmNotice(const Scene& scene, Complaints& complaints) {
    if (const QWidget* form = scene.Window(u"AlarmNotice"_s)) {
        const int lines = ChildOf<QListWidget>(*form, u"List1"_s).count();
        complaints.Met(u"AlarmNotice"_s);
        complaints.Unless(lines > 0 && lines <= kMostAlarms,
                          u"the notice of alarms has %1 lines"_s.arg(lines));
    }
}

}  // namespace

void CheckTiming(const Scene& scene, Complaints& complaints) {
    CheckStopwatch(scene, complaints);
    CheckTimer(scene, complaints);
    CheckReading(scene, complaints);
    CheckNotice(scene, complaints);
    CheckTimers(scene, complaints);
    CheckTimersNotice(scene, complaints);
    CheckAlarms(scene, complaints);
    CheckAlarmNotice(scene, complaints);
}

}  // namespace tickwell
