// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/calendar_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

const Message kTooLate{MessageIcon::Exclamation, u"ｶﾚﾝﾀﾞｰ"_s, u"これ以後の年は表示できません。"_s};
const Message kTooEarly{MessageIcon::Exclamation, u"ｶﾚﾝﾀﾞｰ"_s, u"これ以前の年は表示できません。"_s};

QList<int> PressedDays(const CalendarBench& bench) {
    QList<int> days;
    for (int cell = 7; cell < kGridCells; ++cell) {
        if (bench.calendar.Grid().At(cell).isPressed) {
            days.append(bench.calendar.Grid().At(cell).caption.toInt());
        }
    }
    return days;
}

/// Changes when another connection writes to the file.
QStringList VersionOf(store::RawConnection& watcher) {
    return watcher.Run("PRAGMA data_version");
}

}  // namespace

/// Navigation, limits, the selected day and the panel. Marks have their own tests: tst_month_marks and
/// tst_mark_deletion.
class TstMonthCalendar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Loading();
    void LoadingWritesNothing();
    void Months_data();
    void Months();
    void TheClampedDayIsRemembered();
    void TodayComesBack();
    void TodayFollowsTheClock();
    void AnyDayIsShownAndSelected();
    void ADayOutsideTheYearsIsRefused();
    void Limits_data();
    void Limits();
    void OneStepBackShowsAMonthAgain();
    void TheOtherArrowsStepMayStillBeTooFar();
    void ARefusedMonthLeavesTheReadyFlag();
    void EveryRefusedStepIsReported();
    void ClickingSelects();
    void ClickingTodayKeepsItPressed();
    void PagingReleasesTheSelection();
    void WeekdayNamesCannotBeClicked();
    void NothingIsClickedBeforeTheFirstMonth();
    void BeyondTheLastMonthTheOldDaysAreThoseOfTheNewMonth();
    void ADayThatTheMonthBeyondLacksIsAnError();
    void ThePanelOpensAndCloses();
    void AClosedPanelKeepsItsCaptions();
    void ABrokenDatabaseLeavesTheMonth();
    void AClosedDatabaseIsAnError();
    void UnusualNamesAreShownUnchanged();
    void ElevenActionsAreDisabledWhileMarking();
};

void TstMonthCalendar::Loading() {
    CalendarBench bench;
    QVERIFY(!bench.calendar.IsReady());
    bench.calendar.Load();
    QCOMPARE(bench.calendar.Grid().heading, u"1998年（平成10年）10月"_s);
    QCOMPARE(PressedDays(bench), QList<int>{3});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 3));
    QCOMPARE(bench.calendar.Mode(), CalendarMode::Normal);
    QVERIFY(bench.calendar.IsReady());
    QVERIFY(!bench.calendar.IsPanelOpen());
    QCOMPARE(PanelCaption(bench.calendar.IsPanelOpen()), u"開→"_s);
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);  // listed before the panel was closed
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 0件"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstMonthCalendar::LoadingWritesNothing() {
    CalendarBench bench(QDate(1998, 11, 15));  // a commit would store two national holidays
    bench.store.Raw("INSERT INTO Usuallyday(Date) VALUES ('1998-11-15')");
    store::RawConnection watcher(bench.store.Path());
    const QStringList before = VersionOf(watcher);
    bench.calendar.Load();
    bench.calendar.GoBy(1);
    bench.calendar.ClickCell(20);
    bench.calendar.ChooseMode(CalendarMode::Holidays);
    bench.ClickDays({1, 2, 3});
    bench.calendar.Load();
    QCOMPARE(VersionOf(watcher), before);
    QCOMPARE(bench.Marks(), QStringList{u"Usuallyday 1998-11-15"_s});
}

void TstMonthCalendar::Months_data() {
    QTest::addColumn<QDate>("today");
    QTest::addColumn<int>("months");
    QTest::addColumn<QString>("heading");
    QTest::newRow("next") << QDate(1998, 10, 3) << 1 << u"1998年（平成10年）11月"_s;
    QTest::newRow("before") << QDate(1998, 10, 3) << -1 << u"1998年（平成10年）9月"_s;
    QTest::newRow("over the new year") << QDate(1998, 12, 31) << 1 << u"1999年（平成11年）1月"_s;
    QTest::newRow("and back") << QDate(1999, 1, 31) << -1 << u"1998年（平成10年）12月"_s;
    QTest::newRow("next year") << QDate(1998, 10, 3) << 12 << u"1999年（平成11年）10月"_s;
    QTest::newRow("year before") << QDate(1998, 10, 3) << -12 << u"1997年（平成9年）10月"_s;
    QTest::newRow("from a leap day") << QDate(2000, 2, 29) << 12 << u"2001年（平成13年）2月"_s;
    QTest::newRow("no month is skipped") << QDate(1998, 1, 31) << 1 << u"1998年（平成10年）2月"_s;
}

void TstMonthCalendar::Months() {
    QFETCH(QDate, today);
    QFETCH(int, months);
    CalendarBench bench(today);
    bench.calendar.Load();
    bench.calendar.GoBy(months);
    QTEST(bench.calendar.Grid().heading, "heading");
    QCOMPARE(bench.calendar.SelectedDate(), today);
}

void TstMonthCalendar::TheClampedDayIsRemembered() {
    CalendarBench bench(QDate(1998, 1, 31));
    bench.calendar.Load();
    bench.calendar.GoBy(1);
    QCOMPARE(bench.calendar.ShownMonth(), QDate(1998, 2, 28));
    bench.calendar.GoBy(1);
    QCOMPARE(bench.calendar.ShownMonth(), QDate(1998, 3, 28));
}

void TstMonthCalendar::TodayComesBack() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.ClickDays({20});
    bench.calendar.GoBy(7);
    bench.calendar.GoToToday();
    QCOMPARE(bench.calendar.Grid().heading, u"1998年（平成10年）10月"_s);
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 3));
    QCOMPARE(PressedDays(bench), QList<int>{3});
}

void TstMonthCalendar::TodayFollowsTheClock() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.time.SetNow(QDateTime(QDate(1998, 11, 1), QTime(0, 0)));
    bench.calendar.GoBy(1);
    QCOMPARE(PressedDays(bench), QList<int>{1});
    bench.calendar.GoToToday();
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 11, 1));
}

void TstMonthCalendar::AnyDayIsShownAndSelected() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.calendar.TogglePanel();
    bench.calendar.GoTo(QDate(2026, 12, 31));
    QCOMPARE(bench.calendar.Grid().heading, u"2026年（平成38年）12月"_s);
    QCOMPARE(PressedDays(bench), QList<int>{31});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(2026, 12, 31));
    QCOMPARE(bench.list.Heading(), u"2026年12月31日の記念日"_s);
    bench.calendar.GoTo(QDate(1998, 10, 1));  // today is another day of that month
    QCOMPARE(PressedDays(bench), QList<int>{1});
}

void TstMonthCalendar::ADayOutsideTheYearsIsRefused() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.calendar.GoTo(QDate(2101, 1, 5));
    QCOMPARE(bench.boxes.Shown(), QList<Message>{kTooLate});
    QCOMPARE(PressedDays(bench), QList<int>{3});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 3));
}

void TstMonthCalendar::Limits_data() {
    QTest::addColumn<QDate>("today");
    QTest::addColumn<int>("months");
    QTest::addColumn<QString>("heading");  // after the step
    QTest::addColumn<QString>("told");
    const QString last = u"2100年（平成112年）12月"_s;
    const QString first = u"1926年（昭和1年）1月"_s;
    QTest::newRow("2100 is shown") << QDate(2100, 11, 5) << 1 << last << QString();
    QTest::newRow("2101 is not") << QDate(2100, 12, 5) << 1 << last << kTooLate.text;
    QTest::newRow("nor is a year later") << QDate(2100, 12, 5) << 12 << last << kTooLate.text;
    QTest::newRow("1926 is shown") << QDate(1926, 2, 5) << -1 << first << QString();
    QTest::newRow("1925 is not") << QDate(1926, 1, 5) << -1 << first << kTooEarly.text;
    QTest::newRow("nor is a year earlier") << QDate(1926, 1, 5) << -12 << first << kTooEarly.text;
}

void TstMonthCalendar::Limits() {
    QFETCH(QDate, today);
    QFETCH(int, months);
    QFETCH(QString, told);
    CalendarBench bench(today);
    bench.calendar.Load();
    const MonthGrid before = bench.calendar.Grid();
    bench.calendar.GoBy(months);
    QTEST(bench.calendar.Grid().heading, "heading");
    QCOMPARE(bench.boxes.Shown().isEmpty(), told.isEmpty());
    QCOMPARE(bench.calendar.IsWaiting(), !told.isEmpty());
    if (!told.isEmpty()) {
        QCOMPARE(bench.boxes.Shown(), QList<Message>{months > 0 ? kTooLate : kTooEarly});
        QCOMPARE(bench.calendar.Grid(), before);
        bench.boxes.Close();
        QVERIFY(!bench.calendar.IsWaiting());
    }
}

void TstMonthCalendar::OneStepBackShowsAMonthAgain() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.calendar.Load();
    bench.calendar.GoBy(1);
    QCOMPARE(bench.calendar.ShownMonth(), QDate(2101, 1, 5));
    bench.calendar.GoBy(-1);
    QCOMPARE(bench.calendar.Grid().heading, u"2100年（平成112年）12月"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstMonthCalendar::TheOtherArrowsStepMayStillBeTooFar() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.calendar.Load();
    bench.calendar.GoBy(12);
    bench.calendar.GoBy(-1);
    QCOMPARE(bench.calendar.ShownMonth(), QDate(2101, 11, 5));
    QCOMPARE(bench.boxes.Shown(), (QList<Message>{kTooLate, kTooLate}));
    bench.calendar.GoBy(-12);
    QCOMPARE(bench.calendar.Grid().heading, u"2100年（平成112年）11月"_s);
}

void TstMonthCalendar::ARefusedMonthLeavesTheReadyFlag() {
    CalendarBench unready;
    unready.calendar.BuildMonth(2101, 1);
    QVERIFY(!unready.calendar.IsReady());
    unready.calendar.BuildMonth(1925, 12);
    QVERIFY(!unready.calendar.IsReady());
    unready.calendar.BuildMonth(2100, 12);
    QVERIFY(unready.calendar.IsReady());
    unready.calendar.BuildMonth(2101, 1);
    QVERIFY(unready.calendar.IsReady());
    QCOMPARE(unready.boxes.Shown(), (QList<Message>{kTooLate, kTooEarly, kTooLate}));
}

void TstMonthCalendar::EveryRefusedStepIsReported() {
    CalendarBench bench(QDate(1926, 1, 5));
    bench.calendar.Load();
    for (int step = 0; step < 3; ++step) {
        bench.calendar.GoBy(-1);
        bench.boxes.Close();
    }
    QCOMPARE(bench.boxes.Shown(), (QList<Message>{kTooEarly, kTooEarly, kTooEarly}));
    QCOMPARE(bench.calendar.ShownMonth(), QDate(1925, 10, 5));
}

void TstMonthCalendar::ClickingSelects() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.ClickDays({20});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 20));
    QCOMPARE(PressedDays(bench), QList<int>{20});
    bench.ClickDays({31});
    QCOMPARE(PressedDays(bench), QList<int>{31});
    QVERIFY(bench.calendar.IsReady());
}

void TstMonthCalendar::ClickingTodayKeepsItPressed() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.ClickDays({3});
    QCOMPARE(PressedDays(bench), QList<int>{3});
}

void TstMonthCalendar::PagingReleasesTheSelection() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.ClickDays({20});
    bench.calendar.GoBy(1);
    QCOMPARE(PressedDays(bench), QList<int>());
    bench.calendar.GoBy(-1);
    QCOMPARE(PressedDays(bench), QList<int>{3});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 20));
}

void TstMonthCalendar::WeekdayNamesCannotBeClicked() {
    CalendarBench bench;
    bench.calendar.Load();
    for (const CalendarMode mode : {CalendarMode::Normal, CalendarMode::Holidays, CalendarMode::Halfdays}) {
        bench.calendar.ChooseMode(mode);
        const MonthGrid before = bench.calendar.Grid();
        for (const int cell : {0, 1, 6, -1, 49}) {
            bench.calendar.ClickCell(cell);
        }
        QCOMPARE(bench.calendar.Grid(), before);
        QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 3));
    }
}

void TstMonthCalendar::NothingIsClickedBeforeTheFirstMonth() {
    CalendarBench bench;
    bench.calendar.ClickCell(20);
    QVERIFY(!bench.calendar.Grid().At(20).isPressed);
    QVERIFY(!bench.calendar.SelectedDate().isValid());
}

void TstMonthCalendar::BeyondTheLastMonthTheOldDaysAreThoseOfTheNewMonth() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.calendar.Load();
    bench.calendar.GoBy(11);
    bench.ClickDays({20});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(2101, 11, 20));
}

void TstMonthCalendar::ADayThatTheMonthBeyondLacksIsAnError() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.calendar.Load();
    bench.calendar.GoBy(2);
    QVERIFY_THROWS_EXCEPTION(TypeMismatchError, bench.ClickDays({30}));
    QCOMPARE(bench.calendar.SelectedDate(), QDate(2100, 12, 5));
    QVERIFY(bench.calendar.IsReady());
    QCOMPARE(PressedDays(bench), QList<int>{30});
    bench.ClickDays({28});
    QCOMPARE(bench.calendar.SelectedDate(), QDate(2101, 2, 28));
}

void TstMonthCalendar::ThePanelOpensAndCloses() {
    CalendarBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('誕生日',0,10,20,0)");
    bench.calendar.Load();
    bench.ClickDays({20});
    QVERIFY(bench.list.Rows().Kept().isEmpty());  // the panel is closed
    bench.calendar.TogglePanel();
    QVERIFY(bench.calendar.IsPanelOpen());
    QCOMPARE(PanelCaption(true), u"←閉"_s);
    QCOMPARE(bench.list.Rows().Kept().size(), 1);
    QCOMPARE(bench.list.Heading(), u"1998年10月20日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 1件"_s);
    bench.ClickDays({21});
    QCOMPARE(bench.list.Heading(), u"1998年10月21日の記念日"_s);
    QVERIFY(bench.list.Rows().Kept().isEmpty());
    bench.calendar.TogglePanel();
    QVERIFY(!bench.calendar.IsPanelOpen());
}

void TstMonthCalendar::AClosedPanelKeepsItsCaptions() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.ClickDays({20});
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
    bench.calendar.TogglePanel();
    QCOMPARE(bench.list.Heading(), u"1998年10月20日の記念日"_s);
}

void TstMonthCalendar::ABrokenDatabaseLeavesTheMonth() {
    CalendarBench bench;
    bench.calendar.Load();
    const MonthGrid before = bench.calendar.Grid();
    bench.store.Raw("ALTER TABLE Halfday RENAME TO Gone");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.calendar.GoBy(1));
    QCOMPARE(bench.calendar.Grid(), before);
    QCOMPARE(bench.calendar.ShownMonth(), QDate(1998, 10, 3));
    QVERIFY(bench.calendar.IsReady());
    bench.store.Raw("ALTER TABLE Gone RENAME TO Halfday");
    bench.calendar.GoBy(1);
    QCOMPARE(bench.calendar.Grid().heading, u"1998年（平成10年）11月"_s);
}

void TstMonthCalendar::AClosedDatabaseIsAnError() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.dayDatabase.Close();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.calendar.GoBy(1));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.ClickDays({20}));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.calendar.ChooseMode(CalendarMode::Normal));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.calendar.Load());
}

void TstMonthCalendar::UnusualNamesAreShownUnchanged() {
    CalendarBench bench;
    bench.store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('<b>&amp;\"日', 10, 20), ('', 10, 21)");
    bench.calendar.Load();
    QCOMPARE(bench.Day(20).toolTip, u"<b>&amp;\"日"_s);
    QCOMPARE(bench.Day(21).color, DayColor::Red);
    QCOMPARE(bench.Day(21).toolTip, QString());
}

void TstMonthCalendar::ElevenActionsAreDisabledWhileMarking() {
    CalendarBench bench;
    bench.calendar.Load();
    for (int index = 0; index < kCalendarActions; ++index) {
        const auto action = static_cast<CalendarAction>(index);
        bench.calendar.ChooseMode(CalendarMode::Normal);
        QVERIFY(bench.calendar.CanUse(action));
        for (const CalendarMode mode : {CalendarMode::Holidays, CalendarMode::Halfdays}) {
            bench.calendar.ChooseMode(mode);
            QCOMPARE(bench.calendar.CanUse(action), action == CalendarAction::ShowHelp);
        }
    }
}

QTEST_GUILESS_MAIN(TstMonthCalendar)
#include "tst_month_calendar.moc"
