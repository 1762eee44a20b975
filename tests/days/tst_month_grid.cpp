// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/day_marking.h"
#include "days/month_grid.h"
#include "days/table_holidays.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

const QDate kElsewhere(2200, 1, 1);

/// The rows with their substitute holidays by the rule of the table.
MonthRows WithTableRule(QDate month, MonthRows rows) {
    rows.holidays = WithSubstitutes(ShapeOf(month), rows.holidays);
    return rows;
}

MonthGrid GridOf(QDate month, const MonthRows& rows = {}, QDate today = kElsewhere) {
    MonthGrid grid;
    FillGrid(grid, ShapeOf(month), WithTableRule(month, rows), today);
    return grid;
}

MonthCell Day(const MonthGrid& grid, int day) {
    return grid.At(ShapeOf(grid.first).CellOf(day));
}

MonthRows Marked(const QList<int>& holidays, const QList<int>& halfdays, const QList<int>& usual) {
    return {{}, {holidays, halfdays, usual}};
}

MonthRows Named(const QList<NamedDay>& days) {
    return {days, {}};
}

QList<int> PressedCells(const MonthGrid& grid) {
    QList<int> cells;
    for (int cell = 0; cell < kGridCells; ++cell) {
        if (grid.At(cell).isPressed) {
            cells.append(cell);
        }
    }
    return cells;
}

}  // namespace

class TstMonthGrid : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Heading_data();
    void Heading();
    void TheFirstRowNamesTheWeekdays();
    void Place_data();
    void Place();
    void ColoursByColumn();
    void CaptionsCountTheDays();
    void AHolidayOnAWeekday();
    void AHolidayOnASundayIsMadeUpForOnMonday();
    void TheLastRowNamesTheMonday_data();
    void TheLastRowNamesTheMonday();
    void ASubstituteIsNotMovedToTheDayAfter();
    void ASubstituteDoesNotLeaveTheMonth();
    void DaysThatTheMonthDoesNotHaveAreNotShown_data();
    void DaysThatTheMonthDoesNotHaveAreNotShown();
    void Precedence_data();
    void Precedence();
    void AMarkOnASundayHasNoSubstitute();
    void AHalfdayLooksLikeASaturday();
    void AnOrdinaryDayKeepsTheHolidaysName();
    void OnlyTodayIsPressed();
    void NothingOfThePreviousMonthIsLeft();
    void SpokenNames_data();
    void SpokenNames();
};

void TstMonthGrid::Heading_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<QString>("text");
    QTest::newRow("the first") << 1926 << 1 << u"1926年（昭和1年）1月"_s;
    QTest::newRow("before the new era") << 1988 << 12 << u"1988年（昭和63年）12月"_s;
    QTest::newRow("the first month of the new era") << 1989 << 1 << u"1989年（平成元年）1月"_s;
    QTest::newRow("the end of its first year") << 1989 << 12 << u"1989年（平成元年）12月"_s;
    QTest::newRow("its second year") << 1990 << 1 << u"1990年（平成2年）1月"_s;
    QTest::newRow("two digits") << 1998 << 10 << u"1998年（平成10年）10月"_s;
    QTest::newRow("no later era") << 2019 << 5 << u"2019年（平成31年）5月"_s;
    QTest::newRow("the last") << 2100 << 12 << u"2100年（平成112年）12月"_s;
}

void TstMonthGrid::Heading() {
    QFETCH(int, year);
    QFETCH(int, month);
    QTEST(MonthHeading(year, month), "text");
    QTEST(GridOf(QDate(year, month, 1)).heading, "text");
}

void TstMonthGrid::TheFirstRowNamesTheWeekdays() {
    const MonthGrid grid = GridOf(QDate(1998, 10, 1));
    const QString names = u"日月火水木金土"_s;
    for (int cell = 0; cell < 7; ++cell) {
        QCOMPARE(grid.At(cell).caption, names.at(cell));
        QVERIFY(grid.At(cell).isVisible && !grid.At(cell).isPressed);
        QCOMPARE(static_cast<int>(grid.At(cell).color), cell == 0 ? 0xFF : cell == 6 ? 0xFF0000 : 0);
    }
}

void TstMonthGrid::Place_data() {
    QTest::addColumn<QDate>("month");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("from a Thursday") << QDate(1998, 10, 1) << 11 << 41;
    QTest::newRow("from a Sunday, nothing before") << QDate(1998, 2, 1) << 7 << 34;
    QTest::newRow("31 days from a Saturday, six rows") << QDate(1998, 8, 1) << 13 << 43;
    QTest::newRow("leap February") << QDate(2000, 2, 1) << 9 << 37;
    QTest::newRow("no leap year") << QDate(2100, 2, 1) << 8 << 35;
    QTest::newRow("the first month") << QDate(1926, 1, 1) << 12 << 42;
    QTest::newRow("the last month") << QDate(2100, 12, 1) << 10 << 40;
}

void TstMonthGrid::Place() {
    QFETCH(QDate, month);
    QFETCH(int, first);
    QFETCH(int, last);
    const MonthGrid grid = GridOf(month);
    for (int cell = 7; cell < 49; ++cell) {
        QCOMPARE(grid.At(cell).isVisible, cell >= first && cell <= last);
        QCOMPARE(grid.At(cell).caption.isEmpty(), !grid.At(cell).isVisible);
    }
    QCOMPARE(grid.At(first).caption, u"1"_s);
    QCOMPARE(grid.At(last).caption, QString::number(month.daysInMonth()));
}

void TstMonthGrid::ColoursByColumn() {
    const MonthGrid grid = GridOf(QDate(1998, 10, 1));
    for (int cell = 7; cell < 49; ++cell) {  // hidden cells included
        const int expected = cell % 7 == 0 ? 0xFF : cell % 7 == 6 ? 0xFF0000 : 0;
        QCOMPARE(static_cast<int>(grid.At(cell).color), expected);
    }
}

void TstMonthGrid::CaptionsCountTheDays() {
    const MonthGrid grid = GridOf(QDate(1998, 10, 1));
    for (int day = 1; day <= 31; ++day) {
        QCOMPARE(grid.At(day + 10).caption, QString::number(day));
    }
}

void TstMonthGrid::AHolidayOnAWeekday() {
    const MonthGrid grid = GridOf(QDate(1998, 11, 1), Named({{3, u"文化の日"_s}}));
    QCOMPARE(Day(grid, 3).color, DayColor::Red);
    QCOMPARE(Day(grid, 3).toolTip, u"文化の日"_s);
    QCOMPARE(Day(grid, 4).color, DayColor::Black);
    QCOMPARE(Day(grid, 4).toolTip, QString());
}

void TstMonthGrid::AHolidayOnASundayIsMadeUpForOnMonday() {
    const MonthGrid grid = GridOf(QDate(1998, 5, 1), Named({{3, u"憲法記念日"_s}}));
    QCOMPARE(Day(grid, 3).color, DayColor::Red);
    QCOMPARE(Day(grid, 3).toolTip, u"憲法記念日"_s);
    QCOMPARE(Day(grid, 4).color, DayColor::Red);
    QCOMPARE(Day(grid, 4).toolTip, u"振替休日"_s);
    QCOMPARE(Day(grid, 5).color, DayColor::Black);
}

void TstMonthGrid::TheLastRowNamesTheMonday_data() {
    QTest::addColumn<bool>("sundayFirst");
    QTest::addColumn<QString>("tip");
    QTest::newRow("its own row comes last") << true << u"国民の休日"_s;
    QTest::newRow("the Sunday's row comes last") << false << u"振替休日"_s;
}

void TstMonthGrid::TheLastRowNamesTheMonday() {
    QFETCH(bool, sundayFirst);
    QList<NamedDay> rows{{3, u"憲法記念日"_s}, {4, u"国民の休日"_s}};
    if (!sundayFirst) {
        rows.swapItemsAt(0, 1);
    }
    const MonthGrid grid = GridOf(QDate(1998, 5, 1), Named(rows));
    QCOMPARE(Day(grid, 4).color, DayColor::Red);
    QTEST(Day(grid, 4).toolTip, "tip");
    QCOMPARE(Day(grid, 3).toolTip, u"憲法記念日"_s);
}

void TstMonthGrid::ASubstituteIsNotMovedToTheDayAfter() {
    const MonthGrid grid = GridOf(QDate(1998, 5, 1), Named({{3, u"a"_s}, {4, u"b"_s}, {5, u"c"_s}}));
    QCOMPARE(Day(grid, 5).color, DayColor::Red);
    QCOMPARE(Day(grid, 6).color, DayColor::Black);
    QCOMPARE(Day(grid, 6).toolTip, QString());
}

void TstMonthGrid::ASubstituteDoesNotLeaveTheMonth() {
    const MonthGrid may = GridOf(QDate(1998, 5, 1), Named({{31, u"月末"_s}}));  // a Sunday
    QCOMPARE(Day(may, 31).toolTip, u"月末"_s);
    QCOMPARE(may.At(43).isVisible, false);
    MonthGrid june = may;
    FillGrid(june, ShapeOf(QDate(1998, 6, 1)), {}, kElsewhere);
    QCOMPARE(Day(june, 1).color, DayColor::Black);
    QCOMPARE(Day(june, 1).toolTip, QString());
    const MonthGrid august = GridOf(QDate(1998, 8, 1), Named({{30, u"日曜"_s}}));
    QCOMPARE(august.At(43).color, DayColor::Red);  // the 31st is in the last row
    QCOMPARE(august.At(43).toolTip, u"振替休日"_s);
}

void TstMonthGrid::DaysThatTheMonthDoesNotHaveAreNotShown_data() {
    QTest::addColumn<QDate>("month");
    QTest::addColumn<int>("day");
    QTest::newRow("29 February in a common year") << QDate(1998, 2, 1) << 29;
    QTest::newRow("31 April") << QDate(1998, 4, 1) << 31;
    QTest::newRow("0, left of a Sunday") << QDate(1998, 2, 1) << 0;
    QTest::newRow("-1") << QDate(1998, 10, 1) << -1;
    QTest::newRow("32 from a Saturday") << QDate(1998, 8, 1) << 32;
    QTest::newRow("after the last cell") << QDate(1998, 8, 1) << 37;
    QTest::newRow("far after it") << QDate(1998, 8, 1) << 1000;
    QTest::newRow("the largest number") << QDate(1998, 8, 1) << INT_MAX;
    QTest::newRow("the smallest number") << QDate(1998, 8, 1) << INT_MIN;
}

void TstMonthGrid::DaysThatTheMonthDoesNotHaveAreNotShown() {
    QFETCH(QDate, month);
    QFETCH(int, day);
    const MonthGrid without = GridOf(month);
    const MonthGrid with = GridOf(month, Named({{day, u"なし"_s}}));
    for (int cell = 0; cell < kGridCells; ++cell) {
        if (with.At(cell).isVisible) {
            QCOMPARE(with.At(cell), without.At(cell));
        }
    }
}

void TstMonthGrid::Precedence_data() {
    QTest::addColumn<QList<int>>("tables");  // the tables that contain the date
    QTest::addColumn<bool>("isHoliday");
    QTest::addColumn<int>("color");
    QTest::newRow("none") << QList<int>{} << false << 0;
    QTest::newRow("national holiday") << QList<int>{} << true << 0xFF;
    QTest::newRow("Holiday") << QList<int>{0} << false << 0xFF;
    QTest::newRow("Halfday") << QList<int>{1} << false << 0xFF0000;
    QTest::newRow("Usuallyday") << QList<int>{2} << false << 0;
    QTest::newRow("Holiday and Halfday") << QList<int>{0, 1} << false << 0xFF0000;
    QTest::newRow("Holiday and Usuallyday") << QList<int>{0, 2} << false << 0;
    QTest::newRow("Halfday and Usuallyday") << QList<int>{1, 2} << false << 0;
    QTest::newRow("all three") << QList<int>{0, 1, 2} << false << 0;
    QTest::newRow("Halfday on a national holiday") << QList<int>{1} << true << 0xFF0000;
    QTest::newRow("all three on a national holiday") << QList<int>{0, 1, 2} << true << 0;
}

void TstMonthGrid::Precedence() {
    QFETCH(QList<int>, tables);
    QFETCH(bool, isHoliday);
    for (const int day : {14, 11, 10}) {  // a weekday, a Sunday, a Saturday
        MonthRows rows = isHoliday ? Named({{day, u"祝日"_s}}) : MonthRows();
        for (const int table : tables) {
            rows.marks.at(static_cast<std::size_t>(table)).append(day);
        }
        const MonthGrid grid = GridOf(QDate(1998, 10, 1), rows);
        if (day == 14 || !tables.isEmpty()) {
            QTEST(static_cast<int>(Day(grid, day).color), "color");
        }
        QCOMPARE(Day(grid, day).toolTip.isEmpty(), !isHoliday);
    }
}

void TstMonthGrid::AMarkOnASundayHasNoSubstitute() {
    const MonthGrid grid = GridOf(QDate(1998, 10, 1), Marked({11}, {}, {}));
    QCOMPARE(Day(grid, 12).color, DayColor::Black);
    QCOMPARE(Day(grid, 12).toolTip, QString());
}

void TstMonthGrid::AHalfdayLooksLikeASaturday() {
    const MonthGrid grid = GridOf(QDate(1998, 10, 1), Marked({}, {14}, {}));
    for (const int day : {10, 14}) {  // a Saturday, a Wednesday
        QCOMPARE(static_cast<int>(Day(grid, day).color), 0xFF0000);
        QCOMPARE(Day(grid, day).toolTip, QString());
    }
    QCOMPARE(static_cast<int>(Day(grid, 15).color), 0);
}

void TstMonthGrid::AnOrdinaryDayKeepsTheHolidaysName() {
    MonthRows rows = Marked({}, {}, {3});
    rows.holidays = {{3, u"文化の日"_s}};
    const MonthGrid grid = GridOf(QDate(1998, 11, 1), rows);
    QCOMPARE(Day(grid, 3).color, DayColor::Black);
    QCOMPARE(Day(grid, 3).toolTip, u"文化の日"_s);
}

void TstMonthGrid::OnlyTodayIsPressed() {
    const QDate today(1998, 10, 3);
    QCOMPARE(PressedCells(GridOf(today, {}, today)), QList<int>{13});
    QCOMPARE(PressedCells(GridOf(QDate(1998, 11, 1), {}, today)), QList<int>());
    QCOMPARE(PressedCells(GridOf(QDate(1999, 10, 1), {}, today)), QList<int>());
    MonthGrid clicked = GridOf(QDate(1998, 11, 1), {}, today);
    clicked.At(20).isPressed = true;
    FillGrid(clicked, ShapeOf(today), {}, today);
    QCOMPARE(PressedCells(clicked), QList<int>{13});
}

void TstMonthGrid::NothingOfThePreviousMonthIsLeft() {
    MonthRows rows = Marked({1, 15}, {2, 16}, {4, 11});
    rows.holidays = {{10, u"体育の日"_s}, {31, u"月末"_s}};
    MonthGrid grid = GridOf(QDate(1998, 10, 1), rows);
    FillGrid(grid, ShapeOf(QDate(1998, 11, 1)), {}, kElsewhere);
    QCOMPARE(grid, GridOf(QDate(1998, 11, 1)));
}

void TstMonthGrid::SpokenNames_data() {
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("text");
    QTest::newRow("weekday") << 5 << u"1998年10月5日 月曜日"_s;
    QTest::newRow("Saturday") << 17 << u"1998年10月17日 土曜日"_s;
    QTest::newRow("Sunday") << 4 << u"1998年10月4日 日曜日"_s;
    QTest::newRow("holiday on a Saturday") << 10 << u"1998年10月10日 土曜日、体育の日、休日"_s;
    QTest::newRow("marked holiday") << 6 << u"1998年10月6日 火曜日、休日"_s;
    QTest::newRow("half-day") << 7 << u"1998年10月7日 水曜日、半日"_s;
    QTest::newRow("working Sunday") << 11 << u"1998年10月11日 日曜日、平日"_s;
}

void TstMonthGrid::SpokenNames() {
    QFETCH(int, day);
    MonthRows rows = Marked({6}, {7}, {11});
    rows.holidays = {{10, u"体育の日"_s}};
    const MonthGrid grid = GridOf(QDate(1998, 10, 1), rows);
    const int cell = ShapeOf(grid.first).CellOf(day);
    QTEST(SpokenName(grid, cell), "text");
    MonthGrid marked = grid;
    marked.At(cell).almanac = u"旧暦8月15日 仏滅"_s;
    marked.At(cell).isToday = true;
    marked.At(cell).hasAnniversary = true;
    QCOMPARE(SpokenName(marked, cell), SpokenName(grid, cell) + u"、旧暦8月15日 仏滅、今日、記念日あり");
    QCOMPARE(SpokenName(grid, 0), u"日"_s);
    QCOMPARE(SpokenName(grid, 48), QString());
}

QTEST_GUILESS_MAIN(TstMonthGrid)
#include "tst_month_grid.moc"
