// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "timing/hand_time.h"
#include "timing/stopwatch.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSignChange = qint64{1} << 31;
constexpr qint64 kTurn = qint64{1} << 32;

struct Bench {
    HandTime time;
    StopwatchState state;
    Stopwatch stopwatch{state, time};

    explicit Bench(qint64 since = 307'000) { time.since = since; }
};

}  // namespace

/// The rules of the stopwatch.
class TstStopwatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachTransition_data();
    void EachTransition();
    void TheSecondRunContinuesTheFirst();
    void LapsAreCountedFromTheStart();
    void ItKeepsRunningAcrossTheTurnOfTheCounter();
    void TheSignChangeOverflows();
    void TheDifferenceIsComputedFirst();
    void AStopThatOverflowsEndsTheRun();
    void AStopwatchThatOverflowedIsReset();
    void AFullLapCountDoesNotCount();
    void AnIntervalIsStopwatchTimeSinceThePreviousLap_data();
    void AnIntervalIsStopwatchTimeSinceThePreviousLap();
    void AnIntervalAcrossTheTurnOfTheCounter();
    void AfterALostRunTheIntervalBeginsAtTheKeptTime_data();
    void AfterALostRunTheIntervalBeginsAtTheKeptTime();
    void ALapCountsThoughItsIntervalDoesNotFit();
};

void TstStopwatch::EachTransition_data() {
    QTest::addColumn<QString>("script");  // S start, P stop, L lap, R reset; 100 ms before each
    QTest::addColumn<bool>("running");
    QTest::addColumn<qint32>("reading");
    QTest::addColumn<qint32>("elapsed");
    QTest::addColumn<qint32>("laps");
    QTest::newRow("reset") << u""_s << false << 0 << 0 << 0;
    QTest::newRow("reset, start: running") << u"S"_s << true << 100 << 0 << 0;
    QTest::newRow("running, stop: stopped") << u"SP"_s << false << 100 << 100 << 0;
    QTest::newRow("stopped, start: running from its reading") << u"SPS"_s << true << 200 << 100 << 0;
    QTest::newRow("stopped, reset: reset") << u"SPR"_s << false << 0 << 0 << 0;
    QTest::newRow("running, lap: running") << u"SLL"_s << true << 300 << 0 << 2;
    QTest::newRow("laps outlive a stop") << u"SLPS"_s << true << 300 << 200 << 1;
    QTest::newRow("reset forgets the laps") << u"SLLPRSL"_s << true << 200 << 0 << 1;
    QTest::newRow("reset while reset") << u"RR"_s << false << 0 << 0 << 0;
}

void TstStopwatch::EachTransition() {
    QFETCH(QString, script);
    Bench bench;
    for (const QChar step : script) {
        bench.time.since += 100;
        switch (step.unicode()) {
            case u'S':
                bench.stopwatch.Start();
                break;
            case u'P':
                bench.stopwatch.Stop();
                break;
            case u'L':
                bench.stopwatch.TakeLap();
                break;
            default:
                bench.stopwatch.Reset();
                break;
        }
    }
    bench.time.since += 100;
    QTEST(bench.state.StopwatchRunning, "running");
    QTEST(bench.stopwatch.Reading(), "reading");
    QTEST(bench.state.StopwatchElapsed, "elapsed");
    QTEST(bench.state.StopwatchLapCount, "laps");
    if (script.endsWith(u'R')) {
        QCOMPARE(bench.state.StopwatchStart, 0);
    }
}

void TstStopwatch::TheSecondRunContinuesTheFirst() {
    Bench bench;
    bench.stopwatch.Start();
    bench.time.since += 1500;
    QCOMPARE(bench.stopwatch.Stop(), 1500);
    bench.time.since += 10'000;
    QCOMPARE(bench.stopwatch.Reading(), 1500);
    bench.stopwatch.Start();
    QCOMPARE(bench.state.StopwatchStart, 318'500);
    bench.time.since += 250;
    QCOMPARE(bench.stopwatch.Stop(), 1750);
}

void TstStopwatch::LapsAreCountedFromTheStart() {
    Bench bench;
    bench.stopwatch.Start();
    for (const qint32 number : {1, 2, 3}) {
        bench.time.since += 1000;
        const Stopwatch::Lap lap = bench.stopwatch.TakeLap();
        QCOMPARE(lap.number, number);
        QCOMPARE(lap.reading, 1000 * number);
    }
}

void TstStopwatch::ItKeepsRunningAcrossTheTurnOfTheCounter() {
    Bench bench(kTurn - 300);
    bench.stopwatch.Start();
    QCOMPARE(bench.state.StopwatchStart, -300);
    bench.time.since += 299;
    QCOMPARE(bench.time.Tick(), -1);
    QCOMPARE(bench.stopwatch.Reading(), 299);
    bench.time.since += 1;
    QCOMPARE(bench.time.Tick(), 0);
    QCOMPARE(bench.stopwatch.Reading(), 300);
    QCOMPARE(bench.stopwatch.Stop(), 300);
}

void TstStopwatch::TheSignChangeOverflows() {
    Bench bench(kSignChange - 300);
    bench.stopwatch.Start();
    bench.time.since += 299;
    QCOMPARE(bench.stopwatch.TakeLap().reading, 299);
    bench.time.since += 1;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.Reading());
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.TakeLap());
    QCOMPARE(bench.state.StopwatchLapCount, 1);
    QVERIFY(bench.state.StopwatchRunning);
    QCOMPARE(bench.state.StopwatchLapCount, 1);
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.Stop());
    QVERIFY(!bench.state.StopwatchRunning);
    QCOMPARE(bench.stopwatch.Reading(), 0);
}

/// `elapsed + tick` would overflow, although the reading is small.
void TstStopwatch::TheDifferenceIsComputedFirst() {
    Bench bench(kSignChange - 5000);
    bench.state.StopwatchElapsed = 100'000;
    bench.stopwatch.Start();
    bench.time.since += 4000;
    QCOMPARE(bench.stopwatch.TakeLap().reading, 104'000);
    QCOMPARE(bench.stopwatch.Stop(), 104'000);
}

void TstStopwatch::AStopThatOverflowsEndsTheRun() {
    Bench bench(0);
    bench.state.StopwatchElapsed = 2'147'483'000;
    bench.stopwatch.Start();
    bench.time.since += 647;
    QCOMPARE(bench.stopwatch.Reading(), 2'147'483'647);
    bench.time.since += 1;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.Stop());
    QVERIFY(!bench.state.StopwatchRunning);
    QCOMPARE(bench.stopwatch.Reading(), 2'147'483'000);
}

/// Stop overflows for 24.8 days, while the sign change of the counter is between start and now.
void TstStopwatch::AStopwatchThatOverflowedIsReset() {
    Bench bench(kSignChange - 300);
    bench.stopwatch.Start();
    bench.stopwatch.TakeLap();
    bench.time.since += 1'000'000'000;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.Stop());
    bench.stopwatch.Reset();
    bench.stopwatch.Start();
    bench.time.since += 1500;
    QCOMPARE(bench.stopwatch.TakeLap().number, 1);
    QCOMPARE(bench.stopwatch.Stop(), 1500);
}

void TstStopwatch::AFullLapCountDoesNotCount() {
    Bench bench;
    bench.state.StopwatchLapCount = 2'147'483'646;
    bench.stopwatch.Start();
    QCOMPARE(bench.stopwatch.TakeLap().number, 2'147'483'647);
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.TakeLap());
    QCOMPARE(bench.state.StopwatchLapCount, 2'147'483'647);
}

void TstStopwatch::AnIntervalIsStopwatchTimeSinceThePreviousLap_data() {
    QTest::addColumn<QString>("script");  // S start, P stop, L lap, R reset; a dot advances time by 100 ms
    QTest::addColumn<QList<qint32>>("intervals");
    QTest::newRow("the first, since the start") << u"S..L"_s << QList<qint32>{200};
    QTest::newRow("each since the previous one") << u"S.L...L..L"_s << QList<qint32>{100, 300, 200};
    QTest::newRow("two at once") << u"S.LL"_s << QList<qint32>{100, 0};
    QTest::newRow("a pause does not count") << u"S.L..P.....S.L"_s << QList<qint32>{100, 300};
    QTest::newRow("a pause before the first lap") << u"S..P.....S.L"_s << QList<qint32>{300};
    QTest::newRow("two pauses") << u"S.L.P..S.P..S.L"_s << QList<qint32>{100, 300};
    QTest::newRow("after a reset, since the start")
        << u"S.L...L.PR....S..L"_s << QList<qint32>{100, 300, 200};
}

void TstStopwatch::AnIntervalIsStopwatchTimeSinceThePreviousLap() {
    QFETCH(const QString, script);
    Bench bench;
    QList<qint32> intervals;
    for (const QChar step : script) {
        switch (step.unicode()) {
            case u'S':
                bench.stopwatch.Start();
                break;
            case u'P':
                bench.stopwatch.Stop();
                break;
            case u'L':
                intervals.append(bench.stopwatch.TakeLap().interval);
                break;
            case u'R':
                bench.stopwatch.Reset();
                break;
            default:
                bench.time.since += 100;
                break;
        }
    }
    QTEST(intervals, "intervals");
}

void TstStopwatch::AnIntervalAcrossTheTurnOfTheCounter() {
    Bench bench(kTurn - 300);
    bench.stopwatch.Start();
    bench.time.since += 100;
    QCOMPARE(bench.stopwatch.TakeLap().interval, 100);
    bench.time.since += 700;
    QCOMPARE(bench.stopwatch.TakeLap().interval, 700);
}

void TstStopwatch::AfterALostRunTheIntervalBeginsAtTheKeptTime_data() {
    QTest::addColumn<bool>("lapInLostRun");
    QTest::addColumn<qint32>("interval");
    QTest::newRow("the previous lap was in the kept time") << false << 100 + 300;
    QTest::newRow("the previous lap was in the lost run") << true << 300;
}

/// A run of 400 ms with a lap at 300 ms is kept; then a run of 200 ms, with or without a lap, overflows.
void TstStopwatch::AfterALostRunTheIntervalBeginsAtTheKeptTime() {
    QFETCH(const bool, lapInLostRun);
    Bench bench(kSignChange - 600);
    bench.stopwatch.Start();
    bench.time.since += 300;
    bench.stopwatch.TakeLap();
    bench.time.since += 100;
    bench.stopwatch.Stop();
    bench.stopwatch.Start();
    bench.time.since += 100;
    if (lapInLostRun) {
        QCOMPARE(bench.stopwatch.TakeLap().interval, 200);
    }
    bench.time.since += 100;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.stopwatch.Stop());
    bench.stopwatch.Start();
    bench.time.since += 300;
    const Stopwatch::Lap lap = bench.stopwatch.TakeLap();
    QCOMPARE(lap.reading, 700);
    QTEST(lap.interval, "interval");
}

/// The reading of a stopwatch that has run for 49 days is negative again.
void TstStopwatch::ALapCountsThoughItsIntervalDoesNotFit() {
    Bench bench(kSignChange - 1000);
    bench.stopwatch.Start();
    bench.time.since += 900;
    QCOMPARE(bench.stopwatch.TakeLap().reading, 900);
    bench.time.since += kSignChange - 899;
    QCOMPARE(bench.stopwatch.TakeLap().reading, 1 - kSignChange);
    QCOMPARE(bench.state.StopwatchLapCount, 2);
}

QTEST_GUILESS_MAIN(TstStopwatch)
#include "tst_stopwatch.moc"
