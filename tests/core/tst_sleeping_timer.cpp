// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/sleeping_timer.h"
#include "platform/time/virtual_time.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

/// A timer of 200 ms that records its ticks.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    QList<qint32> ticks;
    qint64 untilDue = 1000;
    std::function<void()> also = [] {};
    SleepingTimer timer{handlers, time, 200,
                        [this] {
                            ticks.append(time.Tick());
                            also();
                        },
                        [this] { return untilDue; }};
};

}  // namespace

/// A timer that sleeps until something is due.
class TstSleepingTimer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItDoesNotTickUntilItIsStarted();
    void TheFirstTickComesAfterTheIntervalAndThenItSleeps();
    void WithoutADueTimeItTicksEachInterval();
    void ASleepIsNeverLongerThanAMinute();
    void WokenItTicksWithinTheInterval();
    void RepeatedWakingDoesNotDelayTheTick();
    void AShortSleepIsNotMadeLonger();
    void AStoppedTimerIsNotWoken();
    void TickNowRestartsTheSleep();
    void AStoppedTimerDoesNotAskWhatIsDue();
    void AFailingTickSwitchesItOff();
    void AFailingQuestionSwitchesItOff();
};

void TstSleepingTimer::ItDoesNotTickUntilItIsStarted() {
    Bench bench;
    bench.time.Advance(10'000);
    QVERIFY(bench.ticks.isEmpty());
    QVERIFY(!bench.timer.IsRunning());
}

void TstSleepingTimer::TheFirstTickComesAfterTheIntervalAndThenItSleeps() {
    Bench bench;
    bench.timer.Start();
    bench.time.Advance(3500);
    QCOMPARE(bench.ticks, (QList<qint32>{200, 1200, 2200, 3200}));
    bench.timer.Stop();
    bench.timer.Start();
    bench.time.Advance(200);
    QCOMPARE(bench.ticks.last(), 3700);
}

void TstSleepingTimer::WithoutADueTimeItTicksEachInterval() {
    for (const qint64 nothing : {0, -5}) {
        Bench bench;
        bench.untilDue = nothing;
        bench.timer.Start();
        bench.time.Advance(600);
        QCOMPARE(bench.ticks, (QList<qint32>{200, 400, 600}));
    }
}

void TstSleepingTimer::ASleepIsNeverLongerThanAMinute() {
    Bench bench;
    bench.untilDue = qint64{1} << 40;
    bench.timer.Start();
    bench.time.Advance(120'200);
    QCOMPARE(bench.ticks, (QList<qint32>{200, 60'200, 120'200}));
}

void TstSleepingTimer::WokenItTicksWithinTheInterval() {
    Bench bench;
    bench.untilDue = 50'000;
    bench.timer.Start();
    bench.time.Advance(3000);
    bench.timer.Wake();
    bench.time.Advance(200);
    QCOMPARE(bench.ticks, (QList<qint32>{200, 3200}));
}

void TstSleepingTimer::RepeatedWakingDoesNotDelayTheTick() {
    Bench bench;
    bench.untilDue = 50'000;
    bench.timer.Start();
    bench.time.Advance(1000);
    for (int ms = 0; ms < 200; ++ms) {
        bench.timer.Wake();
        bench.time.Advance(1);
    }
    QCOMPARE(bench.ticks, (QList<qint32>{200, 1200}));
}

void TstSleepingTimer::AShortSleepIsNotMadeLonger() {
    Bench bench;
    bench.untilDue = 50;
    bench.timer.Start();
    bench.time.Advance(240);
    bench.timer.Wake();
    bench.time.Advance(10);
    QCOMPARE(bench.ticks, (QList<qint32>{200, 250}));
}

void TstSleepingTimer::AStoppedTimerIsNotWoken() {
    Bench bench;
    bench.timer.Wake();
    bench.timer.TickNow();
    bench.time.Advance(10'000);
    QVERIFY(bench.ticks.isEmpty());
}

void TstSleepingTimer::TickNowRestartsTheSleep() {
    Bench bench;
    bench.timer.Start();
    bench.time.Advance(700);
    bench.timer.TickNow();
    bench.time.Advance(1000);
    QCOMPARE(bench.ticks, (QList<qint32>{200, 700, 1700}));
}

void TstSleepingTimer::AStoppedTimerDoesNotAskWhatIsDue() {
    Bench bench;
    bench.also = [&] {
        bench.timer.Stop();
        bench.untilDue = -1;
    };
    bench.timer.Start();
    bench.time.Advance(10'000);
    QCOMPARE(bench.ticks, QList<qint32>{200});
    QVERIFY(!bench.timer.IsRunning());
}

void TstSleepingTimer::AFailingTickSwitchesItOff() {
    Bench bench;
    bench.also = [] { throw RunTimeError(u"理由"_s); };
    bench.timer.Start();
    bench.time.Advance(10'000);
    QCOMPARE(bench.ticks, QList<qint32>{200});
    QVERIFY(!bench.timer.IsRunning());
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstSleepingTimer::AFailingQuestionSwitchesItOff() {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    SleepingTimer timer(
        handlers, time, 200, [] {}, []() -> qint64 { throw OverflowError(); });
    timer.Start();
    time.Advance(10'000);
    QVERIFY(!timer.IsRunning());
    QCOMPARE(boxes.Shown().size(), 1);
}

QTEST_GUILESS_MAIN(TstSleepingTimer)
#include "tst_sleeping_timer.moc"
