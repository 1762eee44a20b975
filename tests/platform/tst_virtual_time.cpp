// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

QDateTime Start() {
    return QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57));
}

}  // namespace

/// Manually controlled time.
class TstVirtualTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WallAndTickMoveTogether();
    void TimersTickInTheOrderOfTheirDueTimes();
    void EachTickSeesItsOwnTime();
    void ANewIntervalRestartsTheTimer();
    void AStoppedTimerIsSilent();
    void ATimerMayStopOrDestroyItselfInItsTick();
    void ATimerDestroyedElsewhereIsForgotten();
    void IntervalsBelowOneCountAsOne();
    void StepJumpsToTheNextDue();
    void TheWallClockCanBeSetAlone();
    void TheTickTurnsOverAt31Bits();
    void TheTimeSinceBootNeverTurnsOver();
    void TimersDoNotCountASuspend();
    void AnotherZoneShowsTheSameMoment();
    void JumpsAreReported();
};

void TstVirtualTime::WallAndTickMoveTogether() {
    VirtualTime time(Start(), 5000);
    time.Advance(4000);
    QCOMPARE(time.Now(), QDateTime(QDate(1998, 10, 4), QTime(0, 0, 1)));
    QCOMPARE(time.Tick(), 9000);
}

void TstVirtualTime::TimersTickInTheOrderOfTheirDueTimes() {
    VirtualTime time(Start());
    QString order;
    const auto slow = time.Create(300, [&] { order += u's'; });
    const auto quick = time.Create(200, [&] { order += u'q'; });
    slow->Start();
    quick->Start();
    time.Advance(700);
    // At 200, 300, 400, then both at 600: first the timer that was started first.
    QCOMPARE(order, u"qsqsq"_s);
}

void TstVirtualTime::EachTickSeesItsOwnTime() {
    VirtualTime time(Start());
    QList<qint32> ticks;
    const auto timer = time.Create(250, [&] { ticks.append(time.Tick()); });
    timer->Start();
    time.Advance(1000);
    QCOMPARE(ticks, (QList<qint32>{250, 500, 750, 1000}));
}

void TstVirtualTime::ANewIntervalRestartsTheTimer() {
    VirtualTime time(Start());
    QList<qint32> ticks;
    std::unique_ptr<Timer> timer;
    timer = time.Create(3000, [&] {
        ticks.append(time.Tick());
        timer->SetInterval(8000);
    });
    timer->Start();
    time.Advance(20000);
    QCOMPARE(ticks, (QList<qint32>{3000, 11000, 19000}));
}

void TstVirtualTime::AStoppedTimerIsSilent() {
    VirtualTime time(Start());
    int ticks = 0;
    const auto timer = time.Create(10, [&] { ++ticks; });
    time.Advance(100);
    QCOMPARE(ticks, 0);
    timer->Start();
    QVERIFY(timer->IsRunning());
    timer->Stop();
    QVERIFY(!timer->IsRunning());
    time.Advance(100);
    QCOMPARE(ticks, 0);
    QCOMPARE(time.UntilNext(), std::nullopt);
}

void TstVirtualTime::ATimerMayStopOrDestroyItselfInItsTick() {
    VirtualTime time(Start());
    int ticks = 0;
    std::unique_ptr<Timer> once;
    once = time.Create(10, [&] {
        ++ticks;
        once->Stop();
    });
    std::unique_ptr<Timer> gone;
    gone = time.Create(20, [&] {
        ++ticks;
        gone.reset();
    });
    once->Start();
    gone->Start();
    time.Advance(1000);
    QCOMPARE(ticks, 2);
}

void TstVirtualTime::ATimerDestroyedElsewhereIsForgotten() {
    VirtualTime time(Start());
    int ticks = 0;
    auto other = time.Create(20, [&] { ++ticks; });
    const auto timer = time.Create(10, [&] { other.reset(); });
    other->Start();
    timer->Start();
    time.Advance(100);
    QCOMPARE(ticks, 0);
}

void TstVirtualTime::IntervalsBelowOneCountAsOne() {
    VirtualTime time(Start());
    int ticks = 0;
    const auto timer = time.Create(0, [&] { ++ticks; });
    timer->Start();
    time.Advance(5);
    timer->SetInterval(-7);
    time.Advance(5);
    QCOMPARE(ticks, 10);
}

void TstVirtualTime::StepJumpsToTheNextDue() {
    VirtualTime time(Start());
    const auto timer = time.Create(200, [] {});
    timer->Start();
    QCOMPARE(time.UntilNext(), std::optional<qint64>(200));
    QCOMPARE(time.Step(500), std::optional<qint64>(300));
    QCOMPARE(time.Tick(), 200);
    QCOMPARE(time.Step(100), std::nullopt);
    QCOMPARE(time.Tick(), 300);
}

void TstVirtualTime::TheWallClockCanBeSetAlone() {
    VirtualTime time(Start(), 77);
    time.SetNow(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
    QCOMPARE(time.Tick(), 77);
    time.Advance(1000);
    QCOMPARE(time.Now(), QDateTime(QDate(2000, 1, 1), QTime(0, 0, 1)));
}

void TstVirtualTime::TheTickTurnsOverAt31Bits() {
    VirtualTime time(Start(), 2147483647);
    time.Advance(1);
    QCOMPARE(time.Tick(), std::numeric_limits<qint32>::min());
    time.Advance(2147483648);
    QCOMPARE(time.Tick(), 0);
}

void TstVirtualTime::TheTimeSinceBootNeverTurnsOver() {
    VirtualTime time(Start(), 2147483647);
    time.Advance(1);
    QCOMPARE(time.SinceBoot(), qint64{2147483648});
    time.Suspend(2147483648);
    QCOMPARE(time.SinceBoot(), qint64{4294967296});
    time.SetNow(Start());
    QCOMPARE(time.SinceBoot(), qint64{4294967296});
}

void TstVirtualTime::TimersDoNotCountASuspend() {
    VirtualTime time(Start(), 5000);
    QList<qint32> ticks;
    const auto timer = time.Create(200, [&] { ticks.append(time.Tick()); });
    timer->Start();
    time.Advance(150);
    time.Suspend(9 * 3'600'000);
    QVERIFY(ticks.isEmpty());
    QCOMPARE(time.Now(), QDateTime(QDate(1998, 10, 4), QTime(8, 59, 57, 150)));
    time.Advance(250);
    QCOMPARE(ticks, (QList<qint32>{32'405'200, 32'405'400}));
}

void TstVirtualTime::AnotherZoneShowsTheSameMoment() {
    VirtualTime time(Start());
    QVERIFY(time.SetZone("UTC"));
    time.Advance(1000);
    QCOMPARE(time.Now().toString(Qt::ISODate), u"1998-10-03T14:59:58"_s);
    QVERIFY(time.SetZone("Asia/Tokyo"));
    QCOMPARE(time.Now().toString(Qt::ISODate), u"1998-10-03T23:59:58"_s);
}

void TstVirtualTime::JumpsAreReported() {
    VirtualTime time(Start());
    int told = 0;
    time.SetNow(Start());  // no listener yet
    time.Listen([&] { ++told; });
    time.Advance(10'000);
    QCOMPARE(told, 0);
    time.SetNow(Start());
    QCOMPARE(told, 1);
    time.Suspend(1);
    QCOMPARE(told, 2);
    QVERIFY(time.SetZone("Asia/Tokyo"));
    QCOMPARE(told, 3);
    time.Listen(nullptr);
    time.SetNow(Start());
    QCOMPARE(told, 3);
}

QTEST_GUILESS_MAIN(TstVirtualTime)
#include "tst_virtual_time.moc"
