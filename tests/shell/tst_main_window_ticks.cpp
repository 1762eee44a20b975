// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QTest>

#include "shell/main_window_accessible.h"
#include "shell/ticking_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

/// How soon the main window notices changes, and how rarely it wakes up for that.
class TstMainWindowTicks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TheTimeIsShownWithin200Milliseconds();
    void TheShownClockWakesAboutOnceASecond();
    void AClockWithoutSecondsWakesForItsMinutes();
    void AClockThatIsSetIsNoticed_data();
    void AClockThatIsSetIsNoticed();
    void AResumeIsNoticed();
    void AnotherZoneIsNoticed();
    void TheTimeSignalComesWithinASecondOfAClockThatIsSet();
    void ARaisedFlagIsNoticedThoughTheClockSleeps();
    void ADatabaseThatComesBackIsNoticedThoughTheClockSleeps();
    void TheUsageTimeIsShownWithin250Milliseconds_data();
    void TheUsageTimeIsShownWithin250Milliseconds();
    void AResumeIsNoticedByTheUsageTime();
    void TheUsageTimeWakesAboutOnceASecond();
    void TheLongUsageTimeIsAlsoShownInTime_data();
    void TheLongUsageTimeIsAlsoShownInTime();
    void TheRunningStopwatchIsPacedToTheScreen();
    void AnIdleStopwatchCausesNoWakeUps();
    void AScreenReaderGetsTheCurrentReading();
    void TheCountdownEndsOnItsMillisecond_data();
    void TheCountdownEndsOnItsMillisecond();
};

void TstMainWindowTicks::initTestCase() {
    InstallMainWindowAccessibility();
}

void TstMainWindowTicks::TheTimeIsShownWithin200Milliseconds() {
    TickingBench bench;
    QVERIFY(bench.MostLate(70'000, [&] { return bench.ClockNow(); }) <= 200);
    QCOMPARE(bench.Lower().Text(), u"午後9時06分28秒"_s);
}

void TstMainWindowTicks::TheShownClockWakesAboutOnceASecond() {
    TickingBench bench;
    // Each second and each rotation of the upper line; the keep-top timer ticks together with a second.
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps >= 3600 && wakeUps <= 3600 + 360 + 60, qPrintable(QString::number(wakeUps)));
    QVERIFY(bench.stack.raised.size() >= 1800);
}

void TstMainWindowTicks::AClockWithoutSecondsWakesForItsMinutes() {
    TickingBench bench(0, 307'000, 2);
    QVERIFY(bench.MostLate(kHour * 3 / 4, [&] { return bench.ClockNow(); }) <= 200);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps <= 60 + 1800 + 400, qPrintable(QString::number(wakeUps)));
}

void TstMainWindowTicks::AClockThatIsSetIsNoticed_data() {
    QTest::addColumn<int>("language");
    QTest::addColumn<QDateTime>("now");
    for (const int language : {0, 2}) {
        for (const QString& now : {u"1998-11-15T09:00:00.900"_s, u"2024-02-29T23:59:59.999"_s,
                                   u"1998-11-15T21:05:18.000"_s, u"1970-01-02T04:30:00.001"_s}) {
            QTest::addRow("%d %s", language, qPrintable(now))
                << language << QDateTime::fromString(now, Qt::ISODateWithMs);
        }
    }
}

void TstMainWindowTicks::AClockThatIsSetIsNoticed() {
    QFETCH(int, language);
    QFETCH(QDateTime, now);
    TickingBench bench(0, 307'000, language);
    bench.time.Advance(5555);
    bench.time.SetNow(now);
    QVERIFY(bench.MostLate(3000, [&] { return bench.ClockNow(); }) <= 200);
    bench.time.Advance(10'000);
    QCOMPARE(bench.Upper().Text(), DateText(bench.time.Now().date(), language, 0, 0));
}

void TstMainWindowTicks::AResumeIsNoticed() {
    for (const int language : {0, 2}) {
        TickingBench bench(0, 307'000, language);
        bench.time.Advance(5555);
        bench.time.Suspend(8 * kHour + 777);
        QVERIFY(bench.MostLate(70'000, [&] { return bench.ClockNow(); }) <= 200);
    }
}

void TstMainWindowTicks::AnotherZoneIsNoticed() {
    for (const int language : {0, 2}) {
        TickingBench bench(0, 307'000, language);
        bench.time.Advance(5555);
        const QString before = bench.ClockNow();
        QVERIFY(bench.time.SetZone("Asia/Kathmandu"));  // three and a quarter hours
        const bool isAnother = bench.ClockNow() != before;
        const qint64 late = bench.MostLate(70'000, [&] { return bench.ClockNow(); });
        QVERIFY(bench.time.SetZone("Asia/Tokyo"));
        QVERIFY(isAnother);
        QVERIFY(late <= 200);
    }
}

void TstMainWindowTicks::TheTimeSignalComesWithinASecondOfAClockThatIsSet() {
    TickingBench bench(1);
    bench.time.SetNow(QDateTime(QDate(1998, 11, 16), QTime(11, 0, 20)));
    bench.time.Advance(1000);
    QCOMPARE(bench.chimes.size(), 1);
    QCOMPARE(bench.chimes.constFirst().second, 11);
    bench.time.Advance(3 * kHour);
    QCOMPARE(bench.chimes.size(), 7);  // three hours, three half hours
}

void TstMainWindowTicks::ARaisedFlagIsNoticedThoughTheClockSleeps() {
    TickingBench bench(0, 307'000, 2);
    bench.time.Advance(9700);  // the upper line rotates in 300 ms
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新しい',0,11,15,0)");
    bench.form->RaiseRefresh();
    bench.time.Advance(300);
    QCOMPARE(bench.Upper().Text(), u"新しい"_s);
}

void TstMainWindowTicks::ADatabaseThatComesBackIsNoticedThoughTheClockSleeps() {
    TickingBench bench(0, 307'000, 2);
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新しい',0,11,15,0)");
    bench.dayDatabase.Close();
    bench.form->RaiseRefresh();
    bench.time.Advance(3000);
    bench.dayDatabase = store::DayDatabase(bench.dayStore.Path());
    bench.time.Advance(7000);
    QCOMPARE(bench.Upper().Text(), u"新しい"_s);
}

void TstMainWindowTicks::TheUsageTimeIsShownWithin250Milliseconds_data() {
    QTest::addColumn<qint64>("tick");
    QTest::newRow("shortly after the start") << qint64{0};
    QTest::newRow("an hour") << qint64{kHour} - 20'000;
    QTest::newRow("the counter changes its sign") << kTickTurn - 20'123;
    QTest::newRow("the counter turns over") << 2 * kTickTurn - 20'123;
    QTest::newRow("half a second off the turn") << kTickTurn - 20'500;
}

void TstMainWindowTicks::TheUsageTimeIsShownWithin250Milliseconds() {
    QFETCH(qint64, tick);
    TickingBench bench(1, tick);
    QVERIFY(bench.MostLate(40'000, [&] { return bench.UsageNow(); }) <= 250);
}

void TstMainWindowTicks::AResumeIsNoticedByTheUsageTime() {
    TickingBench bench(1);
    bench.time.Advance(5100);
    bench.time.Suspend(8 * kHour + 777);
    QVERIFY(bench.MostLate(10'000, [&] { return bench.UsageNow(); }) <= 250);
}

void TstMainWindowTicks::TheUsageTimeWakesAboutOnceASecond() {
    TickingBench bench(1);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps >= 3600 && wakeUps <= 3600 + 130, qPrintable(QString::number(wakeUps)));
    QVERIFY(bench.stack.raised.size() >= 1800);
}

void TstMainWindowTicks::TheLongUsageTimeIsAlsoShownInTime_data() {
    TheUsageTimeIsShownWithin250Milliseconds_data();
}

void TstMainWindowTicks::TheLongUsageTimeIsAlsoShownInTime() {
    QFETCH(qint64, tick);
    TickingBench bench(1, tick);
    bench.further.corrections.longUsage = true;
    QVERIFY(bench.MostLate(40'000, [&] { return bench.UsageNow(); }) <= 250);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps >= 3600 && wakeUps <= 3600 + 130, qPrintable(QString::number(wakeUps)));
}

void TstMainWindowTicks::TheRunningStopwatchIsPacedToTheScreen() {
    TickingBench bench(2);
    bench.StartStopwatch();
    QSet<QString> shown;
    QSet<QChar> lastDigits;
    for (int ms = 0; ms < 10'000; ++ms) {
        bench.time.Advance(1);
        shown.insert(bench.Lower().Text());
        lastDigits.insert(bench.Lower().Text().back());
    }
    QVERIFY2(shown.size() >= 500 && shown.size() <= 600, qPrintable(QString::number(shown.size())));
    QCOMPARE(lastDigits.size(), 10);  // the last digit takes every value
}

void TstMainWindowTicks::AnIdleStopwatchCausesNoWakeUps() {
    TickingBench bench(2);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps <= 1800 + 130, qPrintable(QString::number(wakeUps)));  // ticks of the keep-top timer
}

void TstMainWindowTicks::AScreenReaderGetsTheCurrentReading() {
    TickingBench bench(2);
    bench.StartStopwatch();
    QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&bench.Lower());
    for (int ms = 0; ms < 100; ++ms) {
        QCOMPARE(line->text(QAccessible::Name), bench.ElapsedNow());
        bench.time.Advance(1);
    }
    bench.form->ChangeFunction(3);
    bench.StartCountdown();
    for (int ms = 0; ms < 100; ++ms) {
        QCOMPARE(line->text(QAccessible::Name), ElapsedText(15'000 - ms));
        bench.time.Advance(1);
    }
}

void TstMainWindowTicks::TheCountdownEndsOnItsMillisecond_data() {
    QTest::addColumn<QString>("where");
    for (const char* where : {"shown", "behind another function", "in the notification area"}) {
        QTest::newRow(where) << QString::fromLatin1(where);
    }
}

void TstMainWindowTicks::TheCountdownEndsOnItsMillisecond() {
    QFETCH(QString, where);
    TickingBench bench(3);
    bench.StartCountdown();
    if (where == u"behind another function") {
        bench.form->ChangeFunction(0);
    } else if (where == u"in the notification area") {
        bench.PutAway();
    }
    bench.time.Advance(14'999);
    QVERIFY(!TickingBench::IsNoticeShown());
    bench.time.Advance(1);
    QVERIFY(TickingBench::IsNoticeShown());
    QVERIFY(!bench.countdown.CountdownRunning);
}

QTEST_MAIN(TstMainWindowTicks)
#include "tst_main_window_ticks.moc"
