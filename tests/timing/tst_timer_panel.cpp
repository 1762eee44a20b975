// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "timing/hand_time.h"
#include "timing/journal.h"
#include "timing/timer_panel.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    HandTime time;
    Journal journal;
    JournalLine upper{journal, u"upper"_s};
    JournalLine lower{journal, u"lower"_s};
    CountdownState state;
    Countdown countdown{state, time};
    std::unique_ptr<Timer> TimerTimer = time.Create(1, [] {});
    TimerPanel panel{countdown, {.upper = upper, .lower = lower}, *TimerTimer};

    Bench() { time.since = 307'000; }
    Journal Take() { return std::exchange(journal, {}); }
};

}  // namespace

/// The entry and the buttons of the timer window.
class TstTimerPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheEntryIsRead_data();
    void TheEntryIsRead();
    void TheStateIsShown_data();
    void TheStateIsShown();
    void ReadingWritesTheLineUnderAnyFunction();
    void StartReadsTheEntryAndRunsTheTick();
    void ResumingFlashesTheFullTime();
    void AnEntryChangedWhilePausedKeepsTheElapsedTime();
    void StopLeavesTheLines();
    void ResetRestoresTheFullTime();
    void ResetKeepsTheLoopCount();
    void AnEntryTooLargeThrows();
    void AStartThatOverflowsDoesNotRun();
    void ANewRunOfAnotherProgramReplacesAStoppedOne();
    void ANameBelongsToOneRun();
};

void TstTimerPanel::TheEntryIsRead_data() {
    QTest::addColumn<qint32>("hours");
    QTest::addColumn<qint32>("minutes");
    QTest::addColumn<qint32>("seconds");
    QTest::addColumn<qint32>("duration");
    QTest::addColumn<qint32>("secondsShown");
    QTest::addColumn<QString>("line");
    QTest::newRow("zero becomes fifteen seconds, on purpose")
        << 0 << 0 << 0 << 15'000 << 15 << u"0:00'15\"000"_s;
    QTest::newRow("one second") << 0 << 0 << 1 << 1000 << 1 << u"0:00'01\"000"_s;
    QTest::newRow("an hour, two minutes, three seconds")
        << 1 << 2 << 3 << 3'723'000 << 3 << u"1:02'03\"000"_s;
    QTest::newRow("only an hour is not zero") << 1 << 0 << 0 << 3'600'000 << 0 << u"1:00'00\"000"_s;
    QTest::newRow("the largest") << 23 << 59 << 59 << 86'399'000 << 59 << u"23:59'59\"000"_s;
}

void TstTimerPanel::TheEntryIsRead() {
    QFETCH(qint32, hours);
    QFETCH(qint32, minutes);
    QFETCH(qint32, seconds);
    QFETCH(qint32, secondsShown);
    QFETCH(QString, line);
    Bench bench;
    const TimerEntry taken =
        bench.panel.ReadEntries({.hours = hours, .minutes = minutes, .seconds = seconds, .repeat = true});
    QCOMPARE(taken,
             (TimerEntry{.hours = hours, .minutes = minutes, .seconds = secondsShown, .repeat = true}));
    QTEST(bench.state.CountdownDuration, "duration");
    QVERIFY(bench.state.CountdownRepeat);
    QCOMPARE(bench.Take(), Journal{u"lower set "_s + line});
}

void TstTimerPanel::TheStateIsShown_data() {
    QTest::addColumn<qint32>("duration");
    QTest::addColumn<qint32>("hours");
    QTest::addColumn<qint32>("minutes");
    QTest::addColumn<qint32>("seconds");
    QTest::newRow("zero becomes fifteen seconds") << 0 << 0 << 0 << 15;
    QTest::newRow("the largest") << 86'399'000 << 23 << 59 << 59;
    QTest::newRow("an hour, two minutes, three seconds") << 3'723'000 << 1 << 2 << 3;
    QTest::newRow("half a second is rounded down to even") << 4500 << 0 << 0 << 4;
    QTest::newRow("half a second is rounded up to even") << 5500 << 0 << 0 << 6;
}

void TstTimerPanel::TheStateIsShown() {
    QFETCH(qint32, duration);
    QFETCH(qint32, hours);
    QFETCH(qint32, minutes);
    QFETCH(qint32, seconds);
    Bench bench;
    bench.state.CountdownDuration = duration;
    bench.state.CountdownRepeat = true;
    QCOMPARE(bench.panel.CurrentEntry(),
             (TimerEntry{.hours = hours, .minutes = minutes, .seconds = seconds, .repeat = true}));
    QCOMPARE(bench.state.CountdownDuration, duration == 0 ? 15'000 : duration);
    QVERIFY(bench.Take().isEmpty());
}

void TstTimerPanel::ReadingWritesTheLineUnderAnyFunction() {
    Bench bench;
    bench.state.TimerShownOnMain = false;
    bench.panel.ReadEntries({.hours = 0, .minutes = 0, .seconds = 20, .repeat = false});
    QCOMPARE(bench.Take(), Journal{u"lower set 0:00'20\"000"_s});
}

void TstTimerPanel::StartReadsTheEntryAndRunsTheTick() {
    Bench bench;
    bench.panel.StartOrStop({0, 1, 0, true});
    QVERIFY(bench.panel.IsRunning());
    QVERIFY(bench.TimerTimer->IsRunning());
    QCOMPARE(bench.state.CountdownStart, 307'000);
    QCOMPARE(bench.state.CountdownDuration, 60'000);
    QVERIFY(bench.state.CountdownRepeat);
    QCOMPARE(bench.Take(), Journal{u"lower set 0:01'00\"000"_s});
}

void TstTimerPanel::ResumingFlashesTheFullTime() {
    Bench bench;
    const TimerEntry entry{.hours = 0, .minutes = 1, .seconds = 0, .repeat = false};
    bench.panel.StartOrStop(entry);
    bench.time.since += 5000;
    bench.panel.StartOrStop(entry);
    bench.time.since += 1000;
    bench.Take();
    bench.panel.StartOrStop(entry);
    QCOMPARE(bench.Take(), Journal{u"lower set 0:01'00\"000"_s});
    QCOMPARE(bench.countdown.Remaining(), 55'000);
}

void TstTimerPanel::AnEntryChangedWhilePausedKeepsTheElapsedTime() {
    Bench bench;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.time.since += 5000;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.panel.ReadEntries({.hours = 0, .minutes = 0, .seconds = 3, .repeat = false});
    bench.panel.StartOrStop({0, 0, 3, false});
    QCOMPARE(bench.countdown.Remaining(), -2000);  // deliberately negative: more has elapsed than was entered
}

void TstTimerPanel::StopLeavesTheLines() {
    Bench bench;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.time.since += 5000;
    bench.Take();
    bench.panel.StartOrStop({0, 1, 0, false});
    QVERIFY(!bench.panel.IsRunning());
    QVERIFY(!bench.TimerTimer->IsRunning());
    QCOMPARE(bench.state.CountdownPausedAt, 312'000);
    QVERIFY(bench.Take().isEmpty());
}

void TstTimerPanel::ResetRestoresTheFullTime() {
    Bench bench;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.time.since += 5000;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.Take();
    bench.panel.Reset({0, 0, 30, true});
    QCOMPARE(bench.state.CountdownPausedAt, 0);
    QCOMPARE(bench.state.CountdownStart, 0);
    QCOMPARE(bench.state.CountdownDuration, 30'000);
    QVERIFY(bench.state.CountdownRepeat);
    QCOMPARE(bench.Take(),
             (Journal{u"lower set 0:00'30\"000"_s, u"upper show タイマー"_s, u"lower show 0:00'30\"000"_s}));
}

void TstTimerPanel::ResetKeepsTheLoopCount() {
    Bench bench;
    bench.state.CountdownLoopCount = 3;
    bench.panel.Reset({0, 0, 30, true});
    QCOMPARE(bench.state.CountdownLoopCount, 3);
}

void TstTimerPanel::AnEntryTooLargeThrows() {
    Bench bench;
    QVERIFY_THROWS_EXCEPTION(
        OverflowError, bench.panel.ReadEntries({.hours = 600, .minutes = 0, .seconds = 0, .repeat = false}));
    QCOMPARE(bench.state.CountdownDuration, 0);
}

void TstTimerPanel::AStartThatOverflowsDoesNotRun() {
    Bench bench;
    bench.time.since = (qint64{1} << 31) - 1000;
    bench.panel.StartOrStop({0, 1, 0, false});
    bench.time.since += 2000;
    bench.panel.StartOrStop({0, 1, 0, false});
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.panel.StartOrStop({0, 1, 0, false}));
    QVERIFY(!bench.panel.IsRunning());
    QVERIFY(!bench.TimerTimer->IsRunning());
    bench.panel.Reset({0, 1, 0, false});
    bench.panel.StartOrStop({0, 1, 0, false});
    QCOMPARE(bench.countdown.Remaining(), 60'000);
}

void TstTimerPanel::ANewRunOfAnotherProgramReplacesAStoppedOne() {
    Bench bench;
    bench.panel.StartOrStop({.minutes = 1, .repeat = true});
    bench.time.since += 20'000;
    bench.panel.StartOrStop({});
    bench.Take();
    bench.panel.StartNew(90'500, u"茹で卵"_s);
    QCOMPARE(bench.Take(), (Journal{u"upper show 茹で卵"_s, u"lower set 0:01'30\"500"_s}));
    QVERIFY(bench.panel.IsRunning());
    QVERIFY(bench.TimerTimer->IsRunning());
    QVERIFY(!bench.state.CountdownRepeat);
    QCOMPARE(bench.countdown.Remaining(), 90'500);
    QCOMPARE(bench.state.CountdownName, u"茹で卵"_s);
    QCOMPARE(bench.panel.CurrentEntry(), (TimerEntry{.hours = 0, .minutes = 1, .seconds = 30}));
}

void TstTimerPanel::ANameBelongsToOneRun() {
    Bench bench;
    bench.panel.StartNew(5000, u"卵"_s);
    bench.panel.StartOrStop({});  // stops
    QCOMPARE(bench.state.CountdownName, u"卵"_s);
    bench.panel.StartOrStop({.seconds = 5});  // continues the same run
    QCOMPARE(bench.state.CountdownName, u"卵"_s);
    bench.countdown.End();
    bench.Take();
    bench.panel.StartNew(5000, {});
    QCOMPARE(bench.Take().constFirst(), u"upper show タイマー"_s);
    QCOMPARE(bench.state.CountdownName, QString());
    bench.countdown.SetName(u"卵"_s);
    bench.countdown.End();
    bench.panel.StartOrStop({.seconds = 5});
    QCOMPARE(bench.state.CountdownName, QString());
}

QTEST_GUILESS_MAIN(TstTimerPanel)
#include "tst_timer_panel.moc"
