// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "timing/countdown.h"
#include "timing/hand_time.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSignChange = qint64{1} << 31;
constexpr qint64 kTurn = qint64{1} << 32;

struct Bench {
    HandTime time;
    CountdownState state;
    Countdown countdown{state, time};

    explicit Bench(qint64 since = 307'000, qint32 duration = 60'000) {
        time.since = since;
        countdown.SetDuration(duration);
    }
};

}  // namespace

/// The rules of the countdown.
class TstCountdown : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachTransition_data();
    void EachTransition();
    void ADurationOfZeroBecomesFifteenSeconds();
    void ALongPauseIsNotCounted();
    void ASecondPauseStartsFromTheSecondStop();
    void TenCyclesDoNotDrift();
    void TheLoopCountIsNeverCleared();
    void ItKeepsRunningAcrossTheTurnOfTheCounter();
    void ARemainingTimeThatFitsIsFoundAfterTheSignChange();
    void ACycleAcrossTheSignChangeOverflows();
    void APauseAcrossTheSignChangeOverflowsAndStartsNothing();
    void ACycleThatWouldBeginBeyondTheSignChangeDoesNotCount();
    void AFullLoopCountBeginsNoCycle();
    void AStopAtTickZeroIsNoPause();
};

void TstCountdown::EachTransition_data() {
    QTest::addColumn<QString>(
        "script");  // S start, P stop, R reset, E zero, C zero and repeat; 1 s before each
    QTest::addColumn<bool>("running");
    QTest::addColumn<qint32>("start");
    QTest::addColumn<qint32>("pausedAt");
    QTest::addColumn<qint32>("loops");
    QTest::newRow("idle") << u""_s << false << 0 << 0 << 0;
    QTest::newRow("idle, start: running") << u"S"_s << true << 308'000 << 0 << 0;
    QTest::newRow("running, stop: paused") << u"SP"_s << false << 308'000 << 309'000 << 0;
    QTest::newRow("paused, start: running again, its pause remembered")
        << u"SPS"_s << true << 309'000 << 309'000 << 0;
    QTest::newRow("paused, reset: idle") << u"SPR"_s << false << 0 << 0 << 0;
    QTest::newRow("running, zero: idle") << u"SE"_s << false << 0 << 0 << 0;
    QTest::newRow("running, zero with repeat: running") << u"SC"_s << true << 368'000 << 0 << 1;
    QTest::newRow("after a pause, zero: idle without it") << u"SPSE"_s << false << 0 << 0 << 0;
    QTest::newRow("idle, reset: idle") << u"R"_s << false << 0 << 0 << 0;
}

void TstCountdown::EachTransition() {
    QFETCH(QString, script);
    Bench bench;
    for (const QChar step : script) {
        bench.time.since += 1000;
        switch (step.unicode()) {
            case u'S':
                bench.countdown.Start();
                break;
            case u'P':
                bench.countdown.Stop();
                break;
            case u'R':
                bench.countdown.Forget();
                break;
            case u'E':
                bench.countdown.End();
                break;
            default:
                bench.countdown.BeginNextCycle();
                break;
        }
    }
    QTEST(bench.state.CountdownRunning, "running");
    QTEST(bench.state.CountdownStart, "start");
    QTEST(bench.state.CountdownPausedAt, "pausedAt");
    QTEST(bench.state.CountdownLoopCount, "loops");
    QCOMPARE(bench.state.CountdownDuration, 60'000);
}

void TstCountdown::ADurationOfZeroBecomesFifteenSeconds() {
    Bench bench(307'000, 0);
    QVERIFY(bench.countdown.ReplaceZero());
    QCOMPARE(bench.state.CountdownDuration, 15'000);
    QVERIFY(!bench.countdown.ReplaceZero());
}

void TstCountdown::ALongPauseIsNotCounted() {
    Bench bench;
    bench.countdown.Start();
    bench.time.since += 5000;
    bench.countdown.Stop();
    bench.time.since += 3'600'000;
    bench.countdown.Start();
    QCOMPARE(bench.countdown.Remaining(), 55'000);
    bench.time.since += 1000;
    QCOMPARE(bench.countdown.Remaining(), 54'000);
}

void TstCountdown::ASecondPauseStartsFromTheSecondStop() {
    Bench bench;
    for (const qint32 rest : {55'000, 50'000, 45'000}) {
        bench.countdown.Start();
        bench.time.since += 5000;
        QCOMPARE(bench.countdown.Remaining(), rest);
        bench.countdown.Stop();
        bench.time.since += 12'345;
    }
}

void TstCountdown::TenCyclesDoNotDrift() {
    Bench bench(307'000, 1000);
    bench.countdown.Start();
    const qint32 start = bench.state.CountdownStart;
    for (int cycle = 0; cycle < 10; ++cycle) {
        bench.time.since +=
            1000 + cycle * 7 % 5;  // the tick is a little late, by a different amount each time
        QVERIFY(bench.countdown.Remaining() <= 0);
        bench.countdown.BeginNextCycle();
    }
    QCOMPARE(bench.state.CountdownStart, start + 10'000);
    QCOMPARE(bench.state.CountdownLoopCount, 10);
}

void TstCountdown::TheLoopCountIsNeverCleared() {
    Bench bench;
    bench.countdown.Start();
    bench.countdown.BeginNextCycle();
    bench.countdown.Stop();
    bench.countdown.Forget();
    bench.countdown.Start();
    bench.countdown.BeginNextCycle();
    bench.countdown.End();
    QCOMPARE(bench.state.CountdownLoopCount, 2);
}

void TstCountdown::ItKeepsRunningAcrossTheTurnOfTheCounter() {
    Bench bench(kTurn - 1000, 1500);
    bench.countdown.Start();
    bench.time.since += 1000;
    QCOMPARE(bench.time.Tick(), 0);
    QCOMPARE(bench.countdown.Remaining(), 500);
    bench.time.since += 501;
    QCOMPARE(bench.countdown.Remaining(), -1);
    bench.countdown.BeginNextCycle();
    QCOMPARE(bench.state.CountdownStart, 500);
}

/// After the tick's sign change, `duration - tick` overflows for up to a day, although the remaining time
/// fits.
void TstCountdown::ARemainingTimeThatFitsIsFoundAfterTheSignChange() {
    Bench bench(kSignChange, 86'399'000);
    bench.countdown.Start();
    bench.time.since += 1000;
    QCOMPARE(bench.countdown.Remaining(), 86'398'000);
}

void TstCountdown::ACycleAcrossTheSignChangeOverflows() {
    Bench bench(kSignChange - 1000, 1500);
    bench.countdown.Start();
    bench.time.since += 999;
    QCOMPARE(bench.countdown.Remaining(), 501);
    bench.time.since += 1;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.countdown.Remaining());
    QVERIFY(bench.state.CountdownRunning);
}

void TstCountdown::APauseAcrossTheSignChangeOverflowsAndStartsNothing() {
    Bench bench(kSignChange - 1000);
    bench.countdown.Start();
    bench.time.since += 2000;
    bench.countdown.Stop();
    const qint32 start = bench.state.CountdownStart;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.countdown.Start());
    QVERIFY(!bench.state.CountdownRunning);
    QCOMPARE(bench.state.CountdownStart, start);
}

void TstCountdown::ACycleThatWouldBeginBeyondTheSignChangeDoesNotCount() {
    Bench bench(kSignChange - 1000, 1500);
    bench.countdown.Start();
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.countdown.BeginNextCycle());
    QCOMPARE(bench.state.CountdownLoopCount, 0);
}

void TstCountdown::AFullLoopCountBeginsNoCycle() {
    Bench bench;
    bench.state.CountdownLoopCount = 2'147'483'647;
    bench.countdown.Start();
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.countdown.BeginNextCycle());
    QCOMPARE(bench.state.CountdownStart, 307'000);
}

/// A tick of zero means "not stopped"; the counter has that value for one millisecond in fifty days.
void TstCountdown::AStopAtTickZeroIsNoPause() {
    Bench bench(kTurn - 5000);
    bench.countdown.Start();
    bench.time.since += 5000;
    bench.countdown.Stop();
    QCOMPARE(bench.state.CountdownPausedAt, 0);
    bench.countdown.Start();
    QCOMPARE(bench.countdown.Remaining(), 60'000);
}

QTEST_GUILESS_MAIN(TstCountdown)
#include "tst_countdown.moc"
