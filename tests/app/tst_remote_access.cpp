// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>

#include "app/running_bench.h"
#include "lines/moving_word.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

/// The program with commands enabled, and another program that sends them.
struct Bench : RunningBench {
    explicit Bench(const QString& function = u"0"_s) : RunningBench(function, true) {}

    QVariantList Call(const QString& method, const QVariantList& arguments = {}) {
        return commands.Call(method, arguments);
    }
    qint32 Stopwatch(const QString& action) { return Call(u"Stopwatch"_s, {action}).constFirst().toInt(); }

    /// The kind of refusal of a call; -1 if it was carried out.
    int Refused(const QString& method, const QVariantList& arguments) {
        try {
            Call(method, arguments);
            return -1;
        } catch (const remote::RefusedCall& refused) {
            return static_cast<int>(refused.Kind());
        }
    }
    static QString Line(const char* name) {
        return ChildOf<lines::MovingWord>(Window("Form1"), QLatin1StringView(name)).Text();
    }
    static QString Upper() { return Line("MovingWord1"); }
    static QString Lower() { return Line("MovingWord2"); }
    static void Choose(const char* item) {
        ChildOf<QAction>(Window("Form1"), QLatin1StringView(item)).trigger();
    }

    /// What the settings file would contain if it were saved now.
    QString StoredFunction() {
        program->SaveForSessionEnd();
        return dynamic_cast<FakeSettingsStore&>(*state.started.store)
            .Values()
            .value({u"SetUp"_s, u"Function"_s});
    }
};

constexpr int kRunning = static_cast<int>(remote::Refusal::StopwatchIsRunning);
constexpr int kStopped = static_cast<int>(remote::Refusal::StopwatchIsStopped);
constexpr int kTimerRuns = static_cast<int>(remote::Refusal::TimerIsRunning);

}  // namespace

/// The effects of other programs' commands on the running program.
class TstRemoteAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNothingIsOffered();
    void TheSettingsSwitchItOnAndOff();
    void TheEndOfTheProgramWithdrawsIt();
    void AFunctionIsShownAndNotStored();
    void WhatTheUserChoosesIsStoredAgain();
    void TheStartUpDelayKeepsWhatIsStored();
    void TheStopwatchIsRun();
    void TheStopwatchsWindowFollows();
    void LapsAreKeptForAWindowThatOpensLater();
    void StartingShowsTheStopwatchAndStoresNothing();
    void ATimerRunsUnderItsName();
    void ATimerThatRunsIsNotReplaced();
    void ATimerOfTheUsersHasNoName();
    void TodaysNamesAreThoseOfTheClock();
    void TheWindowComesForwardWithItsMenu();
};

void TstRemoteAccess::ByDefaultNothingIsOffered() {
    RunningBench bench(u"0"_s);
    bench.time.Advance(60'000);
    QCOMPARE(bench.commands.offers, 0);
}

void TstRemoteAccess::TheSettingsSwitchItOnAndOff() {
    RunningBench bench(u"0"_s);
    ChildOf<QAction>(bench.Window("Form1"), u"Menu17"_s).trigger();
    auto& box = ChildOf<QCheckBox>(bench.Window("Form2"), u"Check30"_s);
    QVERIFY(!box.isChecked());
    box.click();
    QVERIFY(!bench.commands.IsOffered());
    bench.Press("Form2", "Command3");
    QVERIFY(bench.commands.IsOffered());
    bench.Press("Form2", "Command3");
    QCOMPARE(bench.commands.offers, 1);  // not offered twice
    box.click();
    QVERIFY(bench.commands.IsOffered());
    bench.Press("Form2", "Command1");
    QVERIFY(!bench.commands.IsOffered());
}

void TstRemoteAccess::TheEndOfTheProgramWithdrawsIt() {
    Bench bench;
    QVERIFY(bench.commands.IsOffered());
    QVERIFY(bench.Window("Form1").close());
    QVERIFY(!bench.commands.IsOffered());
}

void TstRemoteAccess::AFunctionIsShownAndNotStored() {
    Bench bench(u"1"_s);
    bench.Call(u"Show"_s, {u"memory"_s});
    QCOMPARE(bench.Upper(), u"メモリー使用率"_s);
    QCOMPARE(bench.state.started.settings.function, 5);
    QCOMPARE(bench.StoredFunction(), u"1"_s);
    bench.Call(u"Show"_s, {u"4"_s});
    QCOMPARE(bench.Upper(), u"バッテリー残量"_s);
    QCOMPARE(bench.StoredFunction(), u"1"_s);
    bench.Choose("Menu17");
    bench.Press("Form2", "Command1");  // OK restarts the current function
    QCOMPARE(bench.Upper(), u"バッテリー残量"_s);
    QCOMPARE(bench.StoredFunction(), u"1"_s);
}

void TstRemoteAccess::WhatTheUserChoosesIsStoredAgain() {
    Bench bench(u"1"_s);
    bench.Call(u"Show"_s, {u"memory"_s});
    bench.Choose("Menu8");  // the same function
    QCOMPARE(bench.StoredFunction(), u"5"_s);
    bench.Call(u"Show"_s, {u"clock"_s});
    QCOMPARE(bench.StoredFunction(), u"5"_s);
}

void TstRemoteAccess::TheStartUpDelayKeepsWhatIsStored() {
    RunningBench bench(u"1"_s, true);
    bench.program.reset();  // a new start, with a command during the start-up delay
    const ProgramPorts& ports = bench.ports;
    bench.program = std::make_unique<RunningProgram>(ports, bench.state, [] {});
    bench.program->Start();
    bench.time.Advance(999);
    QCOMPARE(bench.commands.offers, 1);
    bench.time.Advance(100);
    QCOMPARE(bench.commands.offers, 2);
    bench.commands.Call(u"Show"_s, {u"memory"_s});
    bench.time.Advance(kStartUp);
    QCOMPARE(bench.state.started.settings.function, 5);
    bench.program->SaveForSessionEnd();
    const auto& store = dynamic_cast<const FakeSettingsStore&>(*bench.state.started.store);
    QCOMPARE(store.Values().value({u"SetUp"_s, u"Function"_s}), u"1"_s);
}

void TstRemoteAccess::TheStopwatchIsRun() {
    Bench bench;
    QCOMPARE(bench.Stopwatch(u"read"_s), 0);
    QCOMPARE(bench.Refused(u"Stopwatch"_s, {u"stop"_s}), kStopped);
    QCOMPARE(bench.Refused(u"Stopwatch"_s, {u"lap"_s}), kStopped);
    QCOMPARE(bench.Stopwatch(u"start"_s), 0);
    bench.time.Advance(1234);
    QCOMPARE(bench.Stopwatch(u"read"_s), 1234);
    QCOMPARE(bench.Stopwatch(u"lap"_s), 1234);
    QCOMPARE(bench.Upper(), u"Lapse1  0:00'01\"234"_s);
    QCOMPARE(bench.Refused(u"Stopwatch"_s, {u"start"_s}), kRunning);
    QCOMPARE(bench.Refused(u"Stopwatch"_s, {u"reset"_s}), kRunning);
    bench.time.Advance(1000);
    QCOMPARE(bench.Stopwatch(u"stop"_s), 2234);
    QCOMPARE(bench.Lower(), u"0:00'02\"234"_s);
    bench.time.Advance(1000);
    QCOMPARE(bench.Stopwatch(u"read"_s), 2234);
    QCOMPARE(bench.Stopwatch(u"start"_s), 2234);
    bench.time.Advance(1);
    QCOMPARE(bench.Stopwatch(u"stop"_s), 2235);
    QCOMPARE(bench.Stopwatch(u"reset"_s), 0);
    QCOMPARE(bench.Stopwatch(u"read"_s), 0);
}

void TstRemoteAccess::TheStopwatchsWindowFollows() {
    Bench bench(u"2"_s);
    bench.Choose("Menu0");
    const auto caption = [](const char* button) {
        return ChildOf<QPushButton>(RunningBench::Window("StopForm"), QLatin1StringView(button)).text();
    };
    const auto& list = ChildOf<QPlainTextEdit>(bench.Window("StopForm"), u"Text1"_s);
    bench.Stopwatch(u"start"_s);
    QCOMPARE(caption("Command1"), u"ストップ"_s);
    bench.time.Advance(500);
    bench.Stopwatch(u"lap"_s);
    QCOMPARE(list.toPlainText(), u"Lapse1  0:00'00\"500"_s);
    bench.Stopwatch(u"stop"_s);
    QCOMPARE(caption("Command2"), u"リセット"_s);
    bench.Stopwatch(u"reset"_s);
    QCOMPARE(list.toPlainText(), QString());
}

void TstRemoteAccess::LapsAreKeptForAWindowThatOpensLater() {
    Bench bench(u"2"_s);
    bench.Stopwatch(u"start"_s);
    bench.time.Advance(500);
    bench.Stopwatch(u"lap"_s);
    bench.time.Advance(500);
    bench.Stopwatch(u"stop"_s);
    bench.Choose("Menu0");
    QCOMPARE(ChildOf<QPlainTextEdit>(bench.Window("StopForm"), u"Text1"_s).toPlainText(),
             u"Lapse1  0:00'00\"500\n【Stop】 0:00'01\"000"_s);
}

void TstRemoteAccess::StartingShowsTheStopwatchAndStoresNothing() {
    Bench bench(u"1"_s);
    bench.Stopwatch(u"start"_s);
    QCOMPARE(bench.Upper(), u"ストップウォッチ"_s);
    QCOMPARE(bench.StoredFunction(), u"1"_s);
}

void TstRemoteAccess::ATimerRunsUnderItsName() {
    Bench bench;
    QCOMPARE(bench.Call(u"Timer"_s, {90'000, u"<b>卵</b>"_s}), QVariantList{1U});
    QCOMPARE(bench.Upper(), u"<b>卵</b>"_s);
    QCOMPARE(bench.StoredFunction(), u"0"_s);
    bench.Call(u"Show"_s, {u"timer"_s});
    bench.time.Advance(30'000);
    QVERIFY2(bench.Lower().startsWith(u"0:01'00\"0"), qPrintable(bench.Lower()));
    bench.time.Advance(59'999);
    QVERIFY(bench.state.countdown.CountdownRunning);
    bench.time.Advance(1);
    QVERIFY(!bench.state.countdown.CountdownRunning);
    const auto& name = ChildOf<QLabel>(bench.Window("Form8"), u"Label2"_s);
    QVERIFY(name.isVisible());
    QCOMPARE(name.text(), u"<b>卵</b>"_s);
    QCOMPARE(name.textFormat(), Qt::PlainText);
}

void TstRemoteAccess::ATimerThatRunsIsNotReplaced() {
    Bench bench;
    bench.Choose("Menu6");
    bench.Press("TimerForm", "Command1");  // the user's own run, of 15 seconds
    bench.time.Advance(5000);
    QCOMPARE(bench.Refused(u"Timer"_s, {90'000, u"卵"_s}), kTimerRuns);
    QCOMPARE(bench.state.countdown.CountdownDuration, 15'000);
    QCOMPARE(bench.state.countdown.CountdownName, QString());
    bench.Press("TimerForm", "Command1");  // stopped, with 10 seconds left
    QCOMPARE(bench.Refused(u"Timer"_s, {90'000, u"卵"_s}), -1);
    QCOMPARE(ChildOf<QSpinBox>(bench.Window("TimerForm"), u"UpDown2"_s).value(), 1);
    QVERIFY(!ChildOf<QSpinBox>(bench.Window("TimerForm"), u"UpDown2"_s).isEnabled());
    bench.time.Advance(89'999);
    QVERIFY(bench.state.countdown.CountdownRunning);
    bench.time.Advance(1);
    QVERIFY(!bench.state.countdown.CountdownRunning);
}

void TstRemoteAccess::ATimerOfTheUsersHasNoName() {
    Bench bench;
    bench.Call(u"Timer"_s, {1000, u"卵"_s});
    bench.time.Advance(1000);
    bench.Press("Form8", "Command1");
    bench.Choose("Menu6");
    bench.Press("TimerForm", "Command1");
    bench.time.Advance(1000);
    QVERIFY(bench.Window("Form8").isVisible());
    QVERIFY(!ChildOf<QLabel>(bench.Window("Form8"), u"Label2"_s).isVisible());
}

void TstRemoteAccess::TodaysNamesAreThoseOfTheClock() {
    Bench bench;
    const auto today = [&bench] { return bench.Call(u"Today"_s).constFirst().toStringList(); };
    QCOMPARE(today(), QStringList());
    bench.state.started.dayDatabase.Execute(u"INSERT INTO Kinenbi VALUES (\"a\tb\",0,11,15,0)"_s);
    QCOMPARE(today(), QStringList{u"a b"_s});
    bench.state.started.further.calendar.announcesOldDate = true;
    QCOMPARE(today(), (QStringList{u"a b"_s, u"旧暦9月27日 大安"_s}));
    bench.state.started.further.calendar.announcesOldDate = false;
    bench.time.SetNow(QDateTime(QDate(1998, 11, 16), QTime(0, 0)));
    QCOMPARE(today(), QStringList());
    bench.state.started.dayDatabase.Close();
    QCOMPARE(bench.Refused(u"Today"_s, {}), static_cast<int>(remote::Refusal::Failed));
}

void TstRemoteAccess::TheWindowComesForwardWithItsMenu() {
    Bench bench;
    bench.Window("Form1").hide();
    bench.Call(u"ComeForward"_s, {false});
    QVERIFY(bench.Window("Form1").isVisible());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    bench.Call(u"ComeForward"_s, {true});
    QVERIFY(QApplication::activePopupWidget() != nullptr);
    bench.Call(u"ComeForward"_s, {true});  // it is already open
    QVERIFY(QApplication::activePopupWidget() != nullptr);
    QApplication::activePopupWidget()->close();
}

QTEST_MAIN(TstRemoteAccess)
#include "tst_remote_access.moc"
