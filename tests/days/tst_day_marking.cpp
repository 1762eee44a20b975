// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/day_marking.h"
#include "days/table_holidays.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr int kSunday = 14;
constexpr int kMonday = 15;
constexpr int kFriday = 19;
constexpr int kSaturday = 20;

std::optional<DayMark> MarkOf(DayColor color, const QString& tip, int cell) {
    return tickwell::days::MarkOf(MonthCell{u"1"_s, color, tip, true, false}, cell);
}

MonthGrid October() {
    MonthRows rows;
    const MonthShape october = ShapeOf(QDate(1998, 10, 1));
    rows.holidays =
        WithSubstitutes(october, {{10, u"体育の日"_s}, {11, u"日曜の祝日"_s}, {13, u"平日にした祝日"_s}});
    rows.marks = {{{2}, {5}, {4, 13}}};
    MonthGrid grid;
    FillGrid(grid, october, rows, QDate(1998, 10, 3));
    return grid;
}

}  // namespace

class TstDayMarking : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Stored_data();
    void Stored();
    void Toggled_data();
    void Toggled();
    void ASaturdayMadeRedAndBackIsOrdinary();
    void TheMonthIsDeletedFirstAndThenWrittenByDays();
    void AMonthWithoutMarksIsOnlyDeleted();
    void AnotherMonthIsReadFromTheSameGrid();
    void DeletionsOfAMonth();
    void DeletionsUpToADay();
};

void TstDayMarking::Stored_data() {
    QTest::addColumn<DayColor>("color");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<int>("cell");
    QTest::addColumn<std::optional<DayMark>>("mark");
    using Mark = std::optional<DayMark>;
    const QString tip = u"祝日"_s;
    for (const int weekday : {kMonday, kFriday}) {
        const char* name = weekday == kMonday ? "Monday" : "Friday";
        QTest::addRow("black %s", name) << DayColor::Black << QString() << weekday << Mark();
        QTest::addRow("red %s", name) << DayColor::Red << QString() << weekday << Mark(DayMark::Holiday);
        QTest::addRow("blue %s", name) << DayColor::Blue << QString() << weekday << Mark(DayMark::Halfday);
        QTest::addRow("black named %s", name)
            << DayColor::Black << tip << weekday << Mark(DayMark::Usuallyday);
        QTest::addRow("red named %s", name) << DayColor::Red << tip << weekday << Mark(DayMark::Holiday);
        QTest::addRow("blue named %s", name) << DayColor::Blue << tip << weekday << Mark(DayMark::Halfday);
    }
    QTest::newRow("black Sunday") << DayColor::Black << QString() << kSunday << Mark(DayMark::Usuallyday);
    QTest::newRow("red Sunday is never stored") << DayColor::Red << QString() << kSunday << Mark();
    QTest::newRow("blue Sunday") << DayColor::Blue << QString() << kSunday << Mark(DayMark::Halfday);
    QTest::newRow("black named Sunday") << DayColor::Black << tip << kSunday << Mark(DayMark::Usuallyday);
    QTest::newRow("red named Sunday") << DayColor::Red << tip << kSunday << Mark();
    QTest::newRow("blue named Sunday") << DayColor::Blue << tip << kSunday << Mark(DayMark::Halfday);
    QTest::newRow("black Saturday") << DayColor::Black << QString() << kSaturday << Mark(DayMark::Usuallyday);
    QTest::newRow("red Saturday") << DayColor::Red << QString() << kSaturday << Mark(DayMark::Holiday);
    QTest::newRow("blue Saturday") << DayColor::Blue << QString() << kSaturday << Mark();
    QTest::newRow("black named Saturday") << DayColor::Black << tip << kSaturday << Mark(DayMark::Usuallyday);
    QTest::newRow("red named Saturday") << DayColor::Red << tip << kSaturday << Mark(DayMark::Holiday);
    QTest::newRow("blue Saturday is stored only when it is a national holiday")
        << DayColor::Blue << tip << kSaturday << Mark(DayMark::Halfday);
}

void TstDayMarking::Stored() {
    QFETCH(DayColor, color);
    QFETCH(QString, tip);
    QFETCH(int, cell);
    QTEST(MarkOf(color, tip, cell), "mark");
}

void TstDayMarking::Toggled_data() {
    QTest::addColumn<CalendarMode>("mode");
    QTest::addColumn<DayColor>("from");
    QTest::addColumn<DayColor>("to");
    QTest::newRow("black to red") << CalendarMode::Holidays << DayColor::Black << DayColor::Red;
    QTest::newRow("blue to red") << CalendarMode::Holidays << DayColor::Blue << DayColor::Red;
    QTest::newRow("red to black") << CalendarMode::Holidays << DayColor::Red << DayColor::Black;
    QTest::newRow("black to blue") << CalendarMode::Halfdays << DayColor::Black << DayColor::Blue;
    QTest::newRow("red to blue") << CalendarMode::Halfdays << DayColor::Red << DayColor::Blue;
    QTest::newRow("blue to black") << CalendarMode::Halfdays << DayColor::Blue << DayColor::Black;
}

void TstDayMarking::Toggled() {
    QFETCH(CalendarMode, mode);
    QFETCH(DayColor, from);
    QTEST(ToggledColor(mode, from), "to");
}

void TstDayMarking::ASaturdayMadeRedAndBackIsOrdinary() {
    DayColor color = DayColor::Blue;
    color = ToggledColor(CalendarMode::Holidays, color);
    color = ToggledColor(CalendarMode::Holidays, color);
    QCOMPARE(MarkOf(color, QString(), kSaturday), std::optional(DayMark::Usuallyday));
}

void TstDayMarking::TheMonthIsDeletedFirstAndThenWrittenByDays() {
    const QStringList expected{
        u"DELETE Holiday.Date FROM Holiday WHERE Date BETWEEN #10/1/1998# AND #10/31/1998#"_s,
        u"DELETE Halfday.Date FROM Halfday WHERE Date BETWEEN #10/1/1998# AND #10/31/1998#"_s,
        u"DELETE Usuallyday.Date FROM Usuallyday WHERE Date BETWEEN #10/1/1998# AND #10/31/1998#"_s,
        u"INSERT INTO Holiday  VALUES (#10/2/1998#)"_s,
        u"INSERT INTO Usuallyday  VALUES (#10/4/1998#)"_s,
        u"INSERT INTO Halfday  VALUES (#10/5/1998#)"_s,
        u"INSERT INTO Holiday  VALUES (#10/10/1998#)"_s,  // national holidays are stored like the others
        u"INSERT INTO Holiday  VALUES (#10/12/1998#)"_s,  // and their substitutes
        u"INSERT INTO Usuallyday  VALUES (#10/13/1998#)"_s,
    };
    QCOMPARE(MonthStatements(October(), ShapeOf(QDate(1998, 10, 1))), expected);
}

void TstDayMarking::AMonthWithoutMarksIsOnlyDeleted() {
    MonthGrid grid;
    const MonthShape june = ShapeOf(QDate(1998, 6, 1));
    FillGrid(grid, june, {}, QDate(1998, 10, 3));
    QCOMPARE(MonthStatements(grid, june), MonthDeletions(june));
}

/// After the arrows have left the supported years, the old month's colours apply to the days of another
/// month.
void TstDayMarking::AnotherMonthIsReadFromTheSameGrid() {
    const MonthShape next = ShapeOf(QDate(1998, 11, 1));  // begins on a Sunday: cell 7 is the 1st
    const QStringList statements = MonthStatements(October(), next);
    const QStringList expected{
        u"INSERT INTO Holiday  VALUES (#11/6/1998#)"_s,      // cell 12, 2 October
        u"INSERT INTO Usuallyday  VALUES (#11/8/1998#)"_s,   // cell 14, 4 October
        u"INSERT INTO Halfday  VALUES (#11/9/1998#)"_s,      // cell 15
        u"INSERT INTO Holiday  VALUES (#11/14/1998#)"_s,     // cell 20
        u"INSERT INTO Holiday  VALUES (#11/16/1998#)"_s,     // cell 22
        u"INSERT INTO Usuallyday  VALUES (#11/17/1998#)"_s,  // cell 23
    };
    QCOMPARE(statements.mid(0, 3), MonthDeletions(next));
    QCOMPARE(statements.mid(3), expected);
}

void TstDayMarking::DeletionsOfAMonth() {
    const QStringList expected{
        u"DELETE Holiday.Date FROM Holiday WHERE Date BETWEEN #2/1/2000# AND #2/29/2000#"_s,
        u"DELETE Halfday.Date FROM Halfday WHERE Date BETWEEN #2/1/2000# AND #2/29/2000#"_s,
        u"DELETE Usuallyday.Date FROM Usuallyday WHERE Date BETWEEN #2/1/2000# AND #2/29/2000#"_s,
    };
    QCOMPARE(MonthDeletions(ShapeOf(QDate(2000, 2, 17))), expected);
}

void TstDayMarking::DeletionsUpToADay() {
    const QStringList expected{
        u"DELETE Holiday.Date FROM Holiday WHERE Date <= #10/31/1998#"_s,
        u"DELETE Halfday.Date FROM Halfday WHERE Date <= #10/31/1998#"_s,
        u"DELETE Usuallyday.Date FROM Usuallyday WHERE Date <= #10/31/1998#"_s,
    };
    QCOMPARE(DeletionsUpTo(QDate(1998, 10, 31)), expected);
}

QTEST_GUILESS_MAIN(TstDayMarking)
#include "tst_day_marking.moc"
