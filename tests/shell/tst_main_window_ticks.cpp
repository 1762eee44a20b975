// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QTest>

#include "core/clock_text.h"
#include "core/duration_text.h"
#include "shell/main_window_accessible.h"
#include "shell/main_window_bench.h"
#include "timing/timer_notice.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

constexpr int kStartUp = 11'000;  // ms until the stored function starts
constexpr int kHour = 3'600'000;
constexpr qint64 kTurn = qint64{1} << 31;

/// The main window with this function, which has just started; the wall clock stands within a second.
struct Bench : public MainWindowBench {
    explicit Bench(int function = 0, qint64 tick = 307'000, int language = 0) {
        store.Put(u"SetUp"_s, u"Function"_s, QString::number(function));
        store.Put(u"Digital"_s, u"Language"_s, QString::number(language));
        tray.SetThere(true);
        time.SetNow(QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7, 350)));
        time.Suspend(tick - 307'000);
        time.SetNow(QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7, 350)));
        Start();
        time.Advance(kStartUp);
    }

    /// The moments at which some timer ticks; those less than three milliseconds after one that counted do
    /// not.
    int WakeUps(qint64 milliseconds) {
        constexpr int kApart = 3;
        int wakeUps = 0;
        qint64 counted = -kApart;
        for (std::optional<qint64> left = milliseconds; (left = time.Step(*left));) {
            const qint64 passed = milliseconds - *left;
            if (passed - counted >= kApart) {
                counted = passed;
                ++wakeUps;
            }
        }
        return wakeUps;
    }

    /// The longest time, in ms, for which the lower line was seen to show anything but what `expected` says.
    template <typename Expected>
    qint64 MostLate(qint64 milliseconds, Expected expected) {
        constexpr int kLook = 10;
        qint64 since = 0;
        qint64 mostLate = 0;
        for (qint64 passed = 0; passed < milliseconds; passed += kLook) {
            since = Lower().Text() == expected() ? passed + kLook : since;
            mostLate = std::max(mostLate, passed - since);
            time.Advance(kLook);
        }
        return mostLate;
    }
    QString ClockNow() const {
        return ClockText(time.Now().time(), settings.language, settings.displayMode, settings.hourStyle);
    }
    QString UsageNow() const {
        return UsageText(time.Tick(), settings.language, settings.displayMode, settings.hourStyle);
    }
    QString ElapsedNow() const { return ElapsedText(time.Tick() - stopwatch.StopwatchStart); }

    void PutAway() const { Item("Menu19").trigger(); }
    void TakeBack() { tray.Click(); }

    QPushButton& Button(const char* window, const char* name) const {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            if (each->objectName() == QLatin1StringView(window)) {
                return *each->findChild<QPushButton*>(QLatin1StringView(name));
            }
        }
        qFatal("no window %s", window);
    }
    void StartStopwatch() {
        Item("Menu0").trigger();
        Button("StopForm", "Command1").click();
    }
    void StartCountdown() { Button("TimerForm", "Command1").click(); }

    static bool IsNoticeShown() {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [](const QWidget* each) {
            return qobject_cast<const Form8*>(each) != nullptr && each->isVisible();
        });
    }
};

}  // namespace

/// How soon the main window notices what changes, and how seldom it wakes up for that.
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
    void OutOfSightItWakesSeldom_data();
    void OutOfSightItWakesSeldom();
    void OutOfSightNothingWipes();
    void BackInSightTheTimeIsRightAtOnce();
    void BackInSightTheMemoryIsRightAtOnce();
    void BackInSightAfterMidnightTheDateIsRight();
    void TheRunningStopwatchIsPacedToTheScreen();
    void AStandingStopwatchWakesNobody();
    void BackInSightTheReadingIsRightAtOnce();
    void AReaderIsToldTheReadingOfTheMoment();
    void TheCountdownEndsOnItsMillisecond_data();
    void TheCountdownEndsOnItsMillisecond();
    void UnseenCyclesComeInTime();
    void AResumeIsNoticedByTheUnseenCountdown();
    void AnOverflowIsToldAlsoUnseen();
};

void TstMainWindowTicks::initTestCase() {
    InstallMainWindowAccessibility();
}

void TstMainWindowTicks::TheTimeIsShownWithin200Milliseconds() {
    Bench bench;
    QVERIFY(bench.MostLate(70'000, [&] { return bench.ClockNow(); }) <= 200);
    QCOMPARE(bench.Lower().Text(), u"午後9時06分28秒"_s);
}

void TstMainWindowTicks::TheShownClockWakesAboutOnceASecond() {
    Bench bench;
    // The seconds, and the upper line's turns. To keep above, it wakes with a second.
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps >= 3600 && wakeUps <= 3600 + 360 + 60, qPrintable(QString::number(wakeUps)));
    QVERIFY(bench.stack.raised.size() >= 1800);
}

void TstMainWindowTicks::AClockWithoutSecondsWakesForItsMinutes() {
    Bench bench(0, 307'000, 2);
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
    Bench bench(0, 307'000, language);
    bench.time.Advance(5555);
    bench.time.SetNow(now);
    QVERIFY(bench.MostLate(3000, [&] { return bench.ClockNow(); }) <= 200);
    bench.time.Advance(10'000);
    QCOMPARE(bench.Upper().Text(), DateText(bench.time.Now().date(), language, 0, 0));
}

void TstMainWindowTicks::AResumeIsNoticed() {
    for (const int language : {0, 2}) {
        Bench bench(0, 307'000, language);
        bench.time.Advance(5555);
        bench.time.Suspend(8 * kHour + 777);
        QVERIFY(bench.MostLate(70'000, [&] { return bench.ClockNow(); }) <= 200);
    }
}

void TstMainWindowTicks::AnotherZoneIsNoticed() {
    for (const int language : {0, 2}) {
        Bench bench(0, 307'000, language);
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
    Bench bench(1);
    bench.time.SetNow(QDateTime(QDate(1998, 11, 16), QTime(11, 0, 20)));
    bench.time.Advance(1000);
    QCOMPARE(bench.chimes.size(), 1);
    QCOMPARE(bench.chimes.constFirst().second, 11);
    bench.time.Advance(3 * kHour);
    QCOMPARE(bench.chimes.size(), 7);  // three hours, three half hours
}

void TstMainWindowTicks::ARaisedFlagIsNoticedThoughTheClockSleeps() {
    Bench bench(0, 307'000, 2);
    bench.time.Advance(9700);  // the upper line has its turn in 300 ms
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新しい',0,11,15,0)");
    bench.form->RaiseRefresh();
    bench.time.Advance(300);
    QCOMPARE(bench.Upper().Text(), u"新しい"_s);
}

void TstMainWindowTicks::ADatabaseThatComesBackIsNoticedThoughTheClockSleeps() {
    Bench bench(0, 307'000, 2);
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新しい',0,11,15,0)");
    bench.dayDatabase.Close();
    bench.form->RaiseRefresh();
    bench.time.Advance(3000);
    bench.dayDatabase = DayDatabase(bench.dayStore.Path());
    bench.time.Advance(7000);
    QCOMPARE(bench.Upper().Text(), u"新しい"_s);
}

void TstMainWindowTicks::TheUsageTimeIsShownWithin250Milliseconds_data() {
    QTest::addColumn<qint64>("tick");
    QTest::newRow("shortly after the start") << qint64{0};
    QTest::newRow("an hour") << qint64{kHour} - 20'000;
    QTest::newRow("the counter changes its sign") << kTurn - 20'123;
    QTest::newRow("the counter turns over") << 2 * kTurn - 20'123;
    QTest::newRow("half a second off the turn") << kTurn - 20'500;
}

void TstMainWindowTicks::TheUsageTimeIsShownWithin250Milliseconds() {
    QFETCH(qint64, tick);
    Bench bench(1, tick);
    QVERIFY(bench.MostLate(40'000, [&] { return bench.UsageNow(); }) <= 250);
}

void TstMainWindowTicks::AResumeIsNoticedByTheUsageTime() {
    Bench bench(1);
    bench.time.Advance(5100);
    bench.time.Suspend(8 * kHour + 777);
    QVERIFY(bench.MostLate(10'000, [&] { return bench.UsageNow(); }) <= 250);
}

void TstMainWindowTicks::TheUsageTimeWakesAboutOnceASecond() {
    Bench bench(1);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps >= 3600 && wakeUps <= 3600 + 130, qPrintable(QString::number(wakeUps)));
    QVERIFY(bench.stack.raised.size() >= 1800);
}

void TstMainWindowTicks::OutOfSightItWakesSeldom_data() {
    QTest::addColumn<int>("function");
    QTest::newRow("clock") << 0;
    QTest::newRow("usage time") << 1;
    QTest::newRow("stopwatch") << 2;
    QTest::newRow("timer") << 3;
    QTest::newRow("battery") << 4;
    QTest::newRow("memory") << 5;
    QTest::newRow("CD player") << 6;
}

void TstMainWindowTicks::OutOfSightItWakesSeldom() {
    QFETCH(int, function);
    Bench bench(function);
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

void TstMainWindowTicks::OutOfSightNothingWipes() {
    Bench bench;
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

void TstMainWindowTicks::BackInSightTheTimeIsRightAtOnce() {
    for (const int function : {0, 1}) {
        Bench bench(function);
        bench.PutAway();
        bench.time.Advance(1'234'567);
        bench.TakeBack();
        QCOMPARE(bench.Lower().Text(), function == 0 ? bench.ClockNow() : bench.UsageNow());
        QVERIFY(bench.MostLate(3000, [&] { return function == 0 ? bench.ClockNow() : bench.UsageNow(); }) <=
                200);
    }
}

void TstMainWindowTicks::BackInSightTheMemoryIsRightAtOnce() {
    Bench bench(5);
    bench.PutAway();
    bench.memory.SetLoad(77);
    bench.time.Advance(10'000);
    bench.TakeBack();
    QCOMPARE(bench.Lower().Text(), u"77％使用中"_s);
    bench.memory.SetLoad(78);
    bench.time.Advance(2000);
    QCOMPARE(bench.Lower().Text(), u"78％使用中"_s);
}

void TstMainWindowTicks::BackInSightAfterMidnightTheDateIsRight() {
    Bench bench;
    bench.PutAway();
    bench.time.Advance(5 * kHour);
    bench.TakeBack();
    QCOMPARE(bench.Upper().Text(), u"平成10年11月16日(月曜日)"_s);
}

void TstMainWindowTicks::TheRunningStopwatchIsPacedToTheScreen() {
    Bench bench(2);
    bench.StartStopwatch();
    QSet<QString> shown;
    QSet<QChar> lastDigits;
    for (int ms = 0; ms < 10'000; ++ms) {
        bench.time.Advance(1);
        shown.insert(bench.Lower().Text());
        lastDigits.insert(bench.Lower().Text().back());
    }
    QVERIFY2(shown.size() >= 500 && shown.size() <= 600, qPrintable(QString::number(shown.size())));
    QCOMPARE(lastDigits.size(), 10);  // all of its digits run
}

void TstMainWindowTicks::AStandingStopwatchWakesNobody() {
    Bench bench(2);
    const int wakeUps = bench.WakeUps(kHour);
    QVERIFY2(wakeUps <= 1800 + 130, qPrintable(QString::number(wakeUps)));  // to keep above
}

void TstMainWindowTicks::BackInSightTheReadingIsRightAtOnce() {
    Bench bench(2);
    bench.StartStopwatch();
    bench.PutAway();
    bench.time.Advance(1'234'567);
    bench.TakeBack();
    QCOMPARE(bench.Lower().Text(), bench.ElapsedNow());
    bench.time.Advance(1000);
    QVERIFY(bench.Lower().Text() >= u"0:20'35\"550"_s);  // a frame behind at most
}

void TstMainWindowTicks::AReaderIsToldTheReadingOfTheMoment() {
    Bench bench(2);
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
    Bench bench(3);
    bench.StartCountdown();
    if (where == u"behind another function") {
        bench.form->ChangeFunction(0);
    } else if (where == u"in the notification area") {
        bench.PutAway();
    }
    bench.time.Advance(14'999);
    QVERIFY(!Bench::IsNoticeShown());
    bench.time.Advance(1);
    QVERIFY(Bench::IsNoticeShown());
    QVERIFY(!bench.countdown.CountdownRunning);
}

void TstMainWindowTicks::UnseenCyclesComeInTime() {
    Bench bench(3);
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

void TstMainWindowTicks::AResumeIsNoticedByTheUnseenCountdown() {
    Bench bench(3);
    bench.StartCountdown();
    bench.PutAway();
    bench.time.Suspend(60'000);
    bench.time.Advance(1);
    QVERIFY(Bench::IsNoticeShown());
}

void TstMainWindowTicks::AnOverflowIsToldAlsoUnseen() {
    Bench bench(2, kTurn - 100'000);
    bench.StartStopwatch();
    bench.PutAway();
    bench.time.Advance(100'000 - kStartUp - 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.time.Advance(1);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

QTEST_MAIN(TstMainWindowTicks)
#include "tst_main_window_ticks.moc"
