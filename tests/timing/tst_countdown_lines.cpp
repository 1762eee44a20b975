// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "timing/countdown_lines.h"
#include "timing/hand_time.h"
#include "timing/journal.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    HandTime time;
    Journal journal;
    JournalLine upper{journal, u"upper"_s};
    JournalLine lower{journal, u"lower"_s};
    JournalWindows windows{journal};
    CountdownState state;
    Countdown countdown{state, time};
    CountdownLines lines{countdown, {.upper = upper, .lower = lower}, windows};
    std::unique_ptr<Timer> TimerTimer = time.Create(1, [this] { lines.Tick(*TimerTimer); });

    explicit Bench(qint32 duration = 1000, bool repeat = false, bool shown = true) {
        time.since = 307'000;
        state.CountdownDuration = duration;
        state.CountdownRepeat = repeat;
        state.TimerShownOnMain = shown;
    }
    void Start() {
        countdown.Start();
        TimerTimer->Start();
    }
    Journal TickAfter(qint64 milliseconds) {
        time.since += milliseconds;
        journal.clear();
        time.timers.front()->Fire();
        return journal;
    }
};

}  // namespace

/// The countdown on the main window.
class TstCountdownLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingItOffersTheWindowAndShowsTheTime();
    void ChoosingItWithNothingSetShowsFifteenSeconds();
    void ChoosingItLosesThePause();
    void ChoosingItWhileItRunsGoesOn();
    void ChoosingItLateLeavesTheEndToItsTick();
    void ChoosingAnotherHidesIt();
    void TheRemainingTimeIsShownWithEachTick();
    void OneMillisecondIsNotZero();
    void ZeroEndsTheRunInThisOrder();
    void ZeroStartsTheNextCycleInThisOrder();
    void UnseenOnlyTheNoticeIsShown();
    void UnseenTheLoopsAreStillCounted();
    void TheLoopCountIsTheTotalOverAllRuns();
    void ALateTickCatchesUpOneCyclePerTick();
    void AnOverflowWritesNothing();
    void ZeroIsDueAndEachFrameWhileShown();
    void TheRemainingTimeIsUpdatedOnlyWhileShownAndRunning();
    void ZeroIsShownForItsMillisecond();
};

void TstCountdownLines::ChoosingItOffersTheWindowAndShowsTheTime() {
    Bench bench(86'399'000, false, false);
    bench.lines.Show();
    QVERIFY(bench.state.TimerShownOnMain);
    QCOMPARE(bench.journal, (Journal{u"form"_s, u"lower show 23:59'59\"000"_s}));
    QVERIFY(!bench.TimerTimer->IsRunning());
}

void TstCountdownLines::ChoosingItWithNothingSetShowsFifteenSeconds() {
    Bench bench(0, false, false);
    bench.lines.Show();
    QCOMPARE(bench.state.CountdownDuration, 15'000);
    QCOMPARE(bench.journal.last(), u"lower show 0:00'15\"000"_s);
}

void TstCountdownLines::ChoosingItLosesThePause() {
    Bench bench(60'000);
    bench.Start();
    bench.time.since += 5000;
    bench.countdown.Stop();
    bench.lines.Show();
    QCOMPARE(bench.state.CountdownPausedAt, 0);
    QCOMPARE(bench.state.CountdownStart, 0);
    QCOMPARE(bench.journal.last(), u"lower show 0:01'00\"000"_s);
}

void TstCountdownLines::ChoosingItWhileItRunsGoesOn() {
    Bench bench(60'000, false, false);
    bench.Start();
    bench.time.since += 5000;
    bench.lines.Show();
    QCOMPARE(bench.state.CountdownStart, 307'000);
    QCOMPARE(bench.journal, Journal{u"lower show 0:01'00\"000"_s});  // the set time
    QCOMPARE(bench.TickAfter(1), Journal{u"lower set 0:00'54\"999"_s});
}

void TstCountdownLines::ChoosingItLateLeavesTheEndToItsTick() {
    Bench bench(60'000, false, false);
    bench.Start();
    bench.time.since += 61'000;
    bench.lines.Show();
    QCOMPARE(bench.journal, Journal{u"lower show 0:01'00\"000"_s});
    QCOMPARE(bench.TickAfter(1).constFirst(), u"lower set 0:00'00\"000"_s);
}

void TstCountdownLines::ChoosingAnotherHidesIt() {
    Bench bench(60'000);
    bench.Start();
    bench.lines.Hide();
    QVERIFY(!bench.state.TimerShownOnMain);
    QVERIFY(bench.state.CountdownRunning);
    QVERIFY(bench.TickAfter(1).isEmpty());
}

void TstCountdownLines::TheRemainingTimeIsShownWithEachTick() {
    Bench bench;
    bench.Start();
    QCOMPARE(bench.TickAfter(1), Journal{u"lower set 0:00'00\"999"_s});
    QCOMPARE(bench.TickAfter(500), Journal{u"lower set 0:00'00\"499"_s});
}

void TstCountdownLines::OneMillisecondIsNotZero() {
    Bench bench;
    bench.Start();
    QCOMPARE(bench.TickAfter(999), Journal{u"lower set 0:00'00\"001"_s});
    QVERIFY(bench.TickAfter(1).contains(u"notice"_s));
}

void TstCountdownLines::ZeroEndsTheRunInThisOrder() {
    Bench bench;
    bench.Start();
    QCOMPARE(bench.TickAfter(1003),
             (Journal{u"lower set 0:00'00\"000"_s, u"upper show 指定の時間が経過しました"_s, u"form"_s,
                      u"lower show 0:00'01\"000"_s, u"refresh"_s, u"notice"_s}));
    QVERIFY(!bench.TimerTimer->IsRunning());
    QVERIFY(!bench.state.CountdownRunning);
    QCOMPARE(bench.state.CountdownStart, 0);
    QCOMPARE(bench.state.CountdownPausedAt, 0);
    QCOMPARE(bench.state.CountdownLoopCount, 0);
}

void TstCountdownLines::ZeroStartsTheNextCycleInThisOrder() {
    Bench bench(1000, true);
    bench.Start();
    QCOMPARE(bench.TickAfter(1003),
             (Journal{u"lower set 0:00'00\"000"_s, u"upper show ループ 1回目です"_s, u"notice"_s}));
    QVERIFY(bench.TimerTimer->IsRunning());
    QCOMPARE(bench.state.CountdownStart, 308'000);
    QCOMPARE(bench.TickAfter(0), Journal{u"lower set 0:00'00\"997"_s});
    bench.TickAfter(997);
    QCOMPARE(bench.TickAfter(1000)[1], u"upper show ループ 3回目です"_s);
}

void TstCountdownLines::UnseenOnlyTheNoticeIsShown() {
    Bench bench(1000, false, false);
    bench.Start();
    QVERIFY(bench.TickAfter(500).isEmpty());
    // If its window is open, it is updated but not brought to the front, and no line changes.
    QCOMPARE(bench.TickAfter(500), (Journal{u"refresh"_s, u"notice"_s}));
    QVERIFY(!bench.state.CountdownRunning);
}

void TstCountdownLines::UnseenTheLoopsAreStillCounted() {
    Bench bench(1000, true, false);
    bench.Start();
    QCOMPARE(bench.TickAfter(1000), Journal{u"notice"_s});
    QCOMPARE(bench.state.CountdownLoopCount, 1);
}

void TstCountdownLines::TheLoopCountIsTheTotalOverAllRuns() {
    Bench bench(1000, true);
    bench.Start();
    bench.TickAfter(1000);
    bench.TickAfter(1000);
    bench.countdown.Stop();
    bench.countdown.Forget();
    bench.Start();
    QVERIFY(bench.TickAfter(1000).contains(u"upper show ループ 3回目です"_s));
}

void TstCountdownLines::ALateTickCatchesUpOneCyclePerTick() {
    Bench bench(1000, true);
    bench.Start();
    bench.TickAfter(5500);  // as after a suspend
    QCOMPARE(bench.state.CountdownLoopCount, 1);
    for (qint32 count = 2; count <= 5; ++count) {
        QVERIFY(bench.TickAfter(0).contains(u"notice"_s));
        QCOMPARE(bench.state.CountdownLoopCount, count);
    }
    QCOMPARE(bench.TickAfter(0), Journal{u"lower set 0:00'00\"500"_s});
}

void TstCountdownLines::AnOverflowWritesNothing() {
    Bench bench(60'000);
    bench.time.since = (qint64{1} << 31) - 1000;
    bench.Start();
    bench.time.since += 1000;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.lines.Tick(*bench.TimerTimer));
    QVERIFY(bench.journal.isEmpty());
}

void TstCountdownLines::ZeroIsDueAndEachFrameWhileShown() {
    Bench bench(1000);
    bench.Start();
    QCOMPARE(bench.lines.UntilDue(17), qint64{17});
    bench.TickAfter(990);
    QCOMPARE(bench.lines.UntilDue(17), qint64{10});
    bench.lines.Hide();
    QCOMPARE(bench.lines.UntilDue(17), qint64{10});
    bench.countdown.SetDuration(86'399'000);
    QCOMPARE(bench.lines.UntilDue(17), qint64{86'398'010});
    bench.time.since += 86'399'000;
    QVERIFY(bench.lines.UntilDue(17) <= 0);  // late: due at once
}

void TstCountdownLines::TheRemainingTimeIsUpdatedOnlyWhileShownAndRunning() {
    Bench bench(1000);
    bench.lines.BringUp();
    QVERIFY(bench.journal.isEmpty());
    bench.Start();
    bench.time.since += 5;
    bench.lines.BringUp();
    QCOMPARE(bench.journal, Journal{u"lower set 0:00'00\"995"_s});
    bench.time.since += 2000;
    bench.lines.BringUp();
    QCOMPARE(bench.journal.last(), u"lower set 0:00'00\"000"_s);  // ending the run is left to the tick
    QVERIFY(bench.state.CountdownRunning);
    bench.lines.Hide();
    bench.journal.clear();
    bench.lines.BringUp();
    QVERIFY(bench.journal.isEmpty());
}

void TstCountdownLines::ZeroIsShownForItsMillisecond() {
    Bench bench(1000, true);
    bench.Start();
    bench.TickAfter(1000);
    bench.lines.BringUp();
    QCOMPARE(bench.lower.Text(), u"0:00'00\"000"_s);
    bench.time.since += 1;
    bench.lines.BringUp();
    QCOMPARE(bench.lower.Text(), u"0:00'00\"999"_s);
}

QTEST_GUILESS_MAIN(TstCountdownLines)
#include "tst_countdown_lines.moc"
