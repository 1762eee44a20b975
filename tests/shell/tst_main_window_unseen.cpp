// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "shell/ticking_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

/// How rarely the main window wakes up while it is in the notification area, and what it shows afterwards.
class TstMainWindowUnseen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OutOfSightItWakesSeldom_data();
    void OutOfSightItWakesSeldom();
    void OutOfSightNothingWipes();
    void BackInSightTheTimeIsRightAtOnce();
    void BackInSightTheMemoryIsRightAtOnce();
    void BackInSightAfterMidnightTheDateIsRight();
    void BackInSightTheReadingIsRightAtOnce();
    void UnseenCyclesComeInTime();
    void AResumeIsNoticedByTheUnseenCountdown();
    void AnOverflowIsReportedWhileUnseen();
};

void TstMainWindowUnseen::OutOfSightItWakesSeldom_data() {
    QTest::addColumn<int>("function");
    QTest::newRow("clock") << 0;
    QTest::newRow("usage time") << 1;
    QTest::newRow("stopwatch") << 2;
    QTest::newRow("timer") << 3;
    QTest::newRow("battery") << 4;
    QTest::newRow("memory") << 5;
    QTest::newRow("CD player") << 6;
}

void TstMainWindowUnseen::OutOfSightItWakesSeldom() {
    QFETCH(int, function);
    TickingBench bench(function);
    if (function == 2) {
        bench.StartStopwatch();
    }
    if (function == 3) {
        bench.StartCountdown();
        bench.Button("TimerForm", "Command2").window()->close();
    }
    bench.PutAway();
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps <= 3600, qPrintable(QString::number(wakeUps)));
}

void TstMainWindowUnseen::OutOfSightNothingWipes() {
    TickingBench bench;
    bench.PutAway();
    bench.form->ChangeFunction(1);
    QVERIFY(!bench.Upper().IsWiping());
    QCOMPARE(bench.Upper().Text(), u"Windows使用時間"_s);
    bench.TakeBack();
    bench.form->ChangeFunction(5);
    QVERIFY(bench.Upper().IsWiping());
    bench.PutAway();
    bench.time.Advance(bench.Upper().FrameInterval());
    QVERIFY(!bench.Upper().IsWiping());
}

void TstMainWindowUnseen::BackInSightTheTimeIsRightAtOnce() {
    for (const int function : {0, 1}) {
        TickingBench bench(function);
        bench.PutAway();
        bench.time.Advance(1'234'567);
        bench.TakeBack();
        QCOMPARE(bench.Lower().Text(), function == 0 ? bench.ClockNow() : bench.UsageNow());
        QVERIFY(bench.MostLate(3000, [&] { return function == 0 ? bench.ClockNow() : bench.UsageNow(); }) <=
                200);
    }
}

void TstMainWindowUnseen::BackInSightTheMemoryIsRightAtOnce() {
    TickingBench bench(5);
    bench.PutAway();
    bench.memory.SetLoad(77);
    bench.time.Advance(10'000);
    bench.TakeBack();
    QCOMPARE(bench.Lower().Text(), u"77％使用中"_s);
    bench.memory.SetLoad(78);
    bench.time.Advance(2000);
    QCOMPARE(bench.Lower().Text(), u"78％使用中"_s);
}

void TstMainWindowUnseen::BackInSightAfterMidnightTheDateIsRight() {
    TickingBench bench;
    bench.PutAway();
    bench.time.Advance(5 * kHour);
    bench.TakeBack();
    QCOMPARE(bench.Upper().Text(), u"平成10年11月16日(月曜日)"_s);
}

void TstMainWindowUnseen::BackInSightTheReadingIsRightAtOnce() {
    TickingBench bench(2);
    bench.StartStopwatch();
    bench.PutAway();
    bench.time.Advance(1'234'567);
    bench.TakeBack();
    QCOMPARE(bench.Lower().Text(), bench.ElapsedNow());
    bench.time.Advance(1000);
    QVERIFY(bench.Lower().Text() >= u"0:20'35\"550"_s);  // at most one frame late
}

void TstMainWindowUnseen::UnseenCyclesComeInTime() {
    TickingBench bench(3);
    bench.StartCountdown();
    bench.countdown.CountdownRepeat = true;
    bench.form->ChangeFunction(0);
    bench.PutAway();
    for (qint32 cycle = 1; cycle <= 300; ++cycle) {
        bench.time.Advance(14'999);
        QCOMPARE(bench.countdown.CountdownLoopCount, cycle - 1);
        bench.time.Advance(1);
        QCOMPARE(bench.countdown.CountdownLoopCount, cycle);
    }
}

void TstMainWindowUnseen::AResumeIsNoticedByTheUnseenCountdown() {
    TickingBench bench(3);
    bench.StartCountdown();
    bench.PutAway();
    bench.time.Suspend(60'000);
    bench.time.Advance(1);
    QVERIFY(TickingBench::IsNoticeShown());
}

void TstMainWindowUnseen::AnOverflowIsReportedWhileUnseen() {
    TickingBench bench(2, kTickTurn - 100'000);
    bench.StartStopwatch();
    bench.PutAway();
    bench.time.Advance(100'000 - kStartUp - 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.time.Advance(1);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

QTEST_MAIN(TstMainWindowUnseen)
#include "tst_main_window_unseen.moc"
