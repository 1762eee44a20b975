// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <limits>

#include "sync/hybrid_stamp.h"

using namespace tickwell::sync;

/// Stamps of one computer.
class TstHybridStamp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheWallClockIsTaken();
    void AClockThatGoesBackIsOutrun();
    void AStampOfAnotherComputerIsOutrun();
    void OnceTheWallClockHasCaughtUpItIsTakenAgain();
    void AClockBeforeOrAfterAllTimesIsClamped();
    void TheCounterCarries();
};

void TstHybridStamp::TheWallClockIsTaken() {
    HybridClock clock(7);
    QCOMPARE(clock.Next(1000), (HybridStamp{1000, 0, 7}));
    QCOMPARE(clock.Next(1000), (HybridStamp{1000, 1, 7}));
    QCOMPARE(clock.Next(1001), (HybridStamp{1001, 0, 7}));
}

void TstHybridStamp::AClockThatGoesBackIsOutrun() {
    HybridClock clock(7);
    const HybridStamp first = clock.Next(86'400'000);
    const HybridStamp second = clock.Next(0);
    QVERIFY(second > first);
    QCOMPARE(second, (HybridStamp{86'400'000, 1, 7}));
}

void TstHybridStamp::AStampOfAnotherComputerIsOutrun() {
    HybridClock clock(7);
    clock.Observe({86'400'000, 5, 9});
    clock.Observe({86'400'000, 3, 9});
    clock.Observe({1000, 9, 9});
    QCOMPARE(clock.Next(2000), (HybridStamp{86'400'000, 6, 7}));
}

void TstHybridStamp::OnceTheWallClockHasCaughtUpItIsTakenAgain() {
    HybridClock clock(7);
    clock.Observe({5000, 5, 9});
    QCOMPARE(clock.Next(4999), (HybridStamp{5000, 6, 7}));
    QCOMPARE(clock.Next(5001), (HybridStamp{5001, 0, 7}));
}

void TstHybridStamp::AClockBeforeOrAfterAllTimesIsClamped() {
    HybridClock clock(7);
    QCOMPARE(clock.Next(-5).milliseconds, 0);
    QCOMPARE(clock.Next(std::numeric_limits<qint64>::max()).milliseconds, kLastMoment);
}

void TstHybridStamp::TheCounterCarries() {
    HybridClock clock(7);
    clock.Observe({5000, std::numeric_limits<quint32>::max(), 9});
    QCOMPARE(clock.Next(0), (HybridStamp{5001, 0, 7}));
}

QTEST_APPLESS_MAIN(TstHybridStamp)
#include "tst_hybrid_stamp.moc"
