// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/calendar_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

void Choose(CalendarBench& bench, CalendarMode mode) {
    bench.calendar.ChooseMode(mode);
}

void MarkAndCommit(CalendarBench& bench, CalendarMode mode, const QList<int>& days) {
    Choose(bench, mode);
    bench.ClickDays(days);
    Choose(bench, CalendarMode::Normal);
}

/// Replaces the table by an empty one with an additional rule.
void ReplaceUsuallyday(const CalendarBench& bench, const QByteArray& rule) {
    bench.store.Raw(
        "DROP TABLE Usuallyday; CREATE TABLE Usuallyday(id INTEGER PRIMARY KEY,Date TEXT NOT NULL " + rule +
        ") STRICT");
}

}  // namespace

/// Marking days and storing the marks. October 1998 begins on a Thursday: the 4th is a Sunday, the 10th a
/// Saturday.
class TstMonthMarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void MarkingPressesTheDaysOfItsColour();
    void PressedFollowsTheColour();
    void Single_data();
    void Single();
    void EveryDayInBothModesAtOnce();
    void AnUnchangedMonthIsWrittenAsItIsShown();
    void AStoredHolidayStaysAfterItsAbolition();
    void ASubstituteIsStoredToo();
    void TheFirstAndTheLastDayBelongToTheMonth();
    void OtherMonthsAreLeftAlone();
    void AMarkTakenBackIsGone();
    void ChangingTheModeKeepsTheColours();
    void AfterwardsNoDayIsPressedAndNothingIsRebuilt();
    void ChoosingNormalAgainStoresAgain();
    void ClosingWhileMarkingStoresNothing();
    void ACommitThatFailsStoresNothing();
    void BeyondTheLastMonthMarksAreStoredForTheMonthBeyond();
};

void TstMonthMarks::MarkingPressesTheDaysOfItsColour() {
    CalendarBench bench(QDate(1998, 11, 15));
    bench.store.Raw(
        "INSERT INTO Halfday(Date) VALUES ('1998-11-05'); "
        "INSERT INTO Usuallyday(Date) VALUES ('1998-11-08')");
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    QCOMPARE(bench.PressedInGrid(), (QList<int>{1, 3, 15, 22, 23, 29}));
    Choose(bench, CalendarMode::Halfdays);
    QCOMPARE(bench.PressedInGrid(), (QList<int>{5, 7, 14, 21, 28}));
    QCOMPARE(bench.Marks().size(), 2);
}

void TstMonthMarks::PressedFollowsTheColour() {
    CalendarBench bench;
    bench.calendar.Load();
    for (const CalendarMode mode : {CalendarMode::Holidays, CalendarMode::Halfdays}) {
        Choose(bench, mode);
        for (const int day : {4, 5, 10, 5, 10, 4, 4}) {
            bench.ClickDays({day});
            QCOMPARE(bench.Day(day).isPressed, bench.Day(day).color == ColorOf(mode));
        }
    }
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 3));
}

void TstMonthMarks::Single_data() {
    QTest::addColumn<CalendarMode>("mode");
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<QStringList>("marks");
    QTest::addColumn<int>("color");  // of the first clicked day, after the month was rebuilt
    const auto holidays = CalendarMode::Holidays;
    const auto halfdays = CalendarMode::Halfdays;
    QTest::newRow("Sunday") << holidays << QList<int>{4} << QStringList{u"Usuallyday 1998-10-04"_s} << 0;
    QTest::newRow("weekday") << holidays << QList<int>{5} << QStringList{u"Holiday 1998-10-05"_s} << 0xFF;
    QTest::newRow("Saturday") << holidays << QList<int>{10} << QStringList{u"Holiday 1998-10-10"_s} << 0xFF;
    QTest::newRow("Saturday twice") << holidays << QList<int>{10, 10}
                                    << QStringList{u"Usuallyday 1998-10-10"_s} << 0;
    QTest::newRow("weekday twice") << holidays << QList<int>{5, 5} << QStringList() << 0;
    QTest::newRow("Sunday twice") << holidays << QList<int>{4, 4} << QStringList() << 0xFF;
    QTest::newRow("half-day on a weekday")
        << halfdays << QList<int>{5} << QStringList{u"Halfday 1998-10-05"_s} << 0xFF0000;
    QTest::newRow("half-day off a Saturday")
        << halfdays << QList<int>{10} << QStringList{u"Usuallyday 1998-10-10"_s} << 0;
    QTest::newRow("half-day on a Sunday")
        << halfdays << QList<int>{4} << QStringList{u"Halfday 1998-10-04"_s} << 0xFF0000;
    QTest::newRow("half-day on a Sunday twice")
        << halfdays << QList<int>{4, 4} << QStringList{u"Usuallyday 1998-10-04"_s} << 0;
    QTest::newRow("half-day off and on a Saturday")
        << halfdays << QList<int>{10, 10} << QStringList() << 0xFF0000;
}

void TstMonthMarks::Single() {
    QFETCH(CalendarMode, mode);
    QFETCH(QList<int>, clicks);
    CalendarBench bench;
    bench.calendar.Load();
    MarkAndCommit(bench, mode, clicks);
    QTEST(bench.Marks(), "marks");
    bench.calendar.GoBy(1);
    bench.calendar.GoBy(-1);
    QTEST(static_cast<int>(bench.Day(clicks.constFirst()).color), "color");
}

void TstMonthMarks::EveryDayInBothModesAtOnce() {
    CalendarBench bench;
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    for (int day = 1; day <= 31; ++day) {
        bench.ClickDays({day});
    }
    Choose(bench, CalendarMode::Halfdays);
    bench.ClickDays({1, 4, 10});
    Choose(bench, CalendarMode::Normal);
    const QStringList marks = bench.Marks();
    QCOMPARE(marks.filter(u"Holiday "_s).size(), 25);  // weekdays and Saturdays except the 1st and the 10th
    QCOMPARE(marks.filter(u"Halfday "_s),
             (QStringList{u"Halfday 1998-10-01"_s, u"Halfday 1998-10-04"_s}));  // the 10th is blue anyway
    QCOMPARE(
        marks.filter(u"Usuallyday "_s),
        (QStringList{u"Usuallyday 1998-10-11"_s, u"Usuallyday 1998-10-18"_s, u"Usuallyday 1998-10-25"_s}));
}

void TstMonthMarks::AnUnchangedMonthIsWrittenAsItIsShown() {
    CalendarBench bench(QDate(1998, 11, 15));
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {});
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-11-03"_s, u"Holiday 1998-11-23"_s}));
    MarkAndCommit(bench, CalendarMode::Halfdays, {});
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-11-03"_s, u"Holiday 1998-11-23"_s}));
}

void TstMonthMarks::AStoredHolidayStaysAfterItsAbolition() {
    CalendarBench bench(QDate(1998, 11, 15));
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {});
    bench.NoHolidays();
    bench.calendar.Load();
    QCOMPARE(bench.Day(3).color, DayColor::Red);
    QCOMPARE(bench.Day(3).toolTip, QString());
}

void TstMonthMarks::ASubstituteIsStoredToo() {
    CalendarBench bench(QDate(2026, 5, 20));  // the 3rd is a Sunday, the 4th and 5th are holidays themselves
    bench.store.Raw("DELETE FROM Syukuzitu WHERE Day > 3");
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {});
    QCOMPARE(bench.Marks(), QStringList{u"Holiday 2026-05-04"_s});
}

void TstMonthMarks::TheFirstAndTheLastDayBelongToTheMonth() {
    CalendarBench bench;
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {1, 30});
    bench.calendar.GoBy(1);
    MarkAndCommit(bench, CalendarMode::Holidays, {3, 23, 30});
    bench.calendar.GoBy(-1);
    MarkAndCommit(bench, CalendarMode::Holidays, {1, 30});
    QCOMPARE(bench.Marks(),
             (QStringList{u"Holiday 1998-11-30"_s, u"Usuallyday 1998-11-03"_s, u"Usuallyday 1998-11-23"_s}));
}

void TstMonthMarks::OtherMonthsAreLeftAlone() {
    CalendarBench bench;
    bench.NoHolidays();
    bench.store.Raw(
        "INSERT INTO Holiday(Date) VALUES ('1998-09-30'),('1998-10-15'),('1998-11-01');"
        "INSERT INTO Halfday(Date) VALUES ('1997-10-15'),('1999-10-15')");
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {15});
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-09-30"_s, u"Holiday 1998-11-01"_s,
                                         u"Halfday 1997-10-15"_s, u"Halfday 1999-10-15"_s}));
}

void TstMonthMarks::AMarkTakenBackIsGone() {
    CalendarBench bench;
    bench.calendar.Load();
    MarkAndCommit(bench, CalendarMode::Holidays, {5, 6});
    MarkAndCommit(bench, CalendarMode::Holidays, {5});
    QCOMPARE(bench.Marks(), QStringList{u"Holiday 1998-10-06"_s});
}

void TstMonthMarks::ChangingTheModeKeepsTheColours() {
    CalendarBench bench;
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    bench.ClickDays({5});
    Choose(bench, CalendarMode::Halfdays);
    bench.ClickDays({6});
    Choose(bench, CalendarMode::Holidays);
    QCOMPARE(bench.Marks(), QStringList());
    Choose(bench, CalendarMode::Normal);
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-10-05"_s, u"Halfday 1998-10-06"_s}));
}

void TstMonthMarks::AfterwardsNoDayIsPressedAndNothingIsRebuilt() {
    CalendarBench bench;
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    bench.ClickDays({5});
    bench.store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('後から', 10, 20)");
    Choose(bench, CalendarMode::Normal);
    QCOMPARE(bench.PressedInGrid(), QList<int>());  // not even today
    QCOMPARE(bench.Day(20).toolTip, QString());
    QCOMPARE(bench.Day(5).color, DayColor::Red);
    QVERIFY(bench.boxes.Shown().isEmpty() && bench.boxes.Choices().isEmpty());
}

void TstMonthMarks::ChoosingNormalAgainStoresAgain() {
    CalendarBench bench(QDate(1998, 11, 15));
    bench.calendar.Load();
    Choose(bench, CalendarMode::Normal);
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-11-03"_s, u"Holiday 1998-11-23"_s}));
}

void TstMonthMarks::ClosingWhileMarkingStoresNothing() {
    CalendarBench bench;
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('1998-10-15')");
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    bench.ClickDays({5, 15});
    bench.calendar.Load();  // as the window does when it is reopened
    QCOMPARE(bench.Marks(), QStringList{u"Holiday 1998-10-15"_s});
    QCOMPARE(bench.Day(5).color, DayColor::Black);
    QCOMPARE(bench.Day(15).color, DayColor::Red);
    QCOMPARE(bench.calendar.Mode(), CalendarMode::Normal);
}

void TstMonthMarks::ACommitThatFailsStoresNothing() {
    CalendarBench bench;
    bench.store.Raw(
        "INSERT INTO Holiday(Date) VALUES ('1998-10-15'); INSERT INTO Halfday(Date) VALUES ('1998-10-16')");
    bench.calendar.Load();
    Choose(bench, CalendarMode::Holidays);
    bench.ClickDays({4, 5});
    ReplaceUsuallyday(bench, ",Other TEXT NOT NULL");  // no statement of the program sets this column
    QVERIFY_THROWS_EXCEPTION(RunTimeError, Choose(bench, CalendarMode::Normal));
    QCOMPARE(bench.calendar.Mode(), CalendarMode::Normal);
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-10-15"_s, u"Halfday 1998-10-16"_s}));
    ReplaceUsuallyday(bench, "");
    Choose(bench, CalendarMode::Normal);  // the colours were kept
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-10-05"_s, u"Holiday 1998-10-15"_s,
                                         u"Halfday 1998-10-16"_s, u"Usuallyday 1998-10-04"_s}));
}

void TstMonthMarks::BeyondTheLastMonthMarksAreStoredForTheMonthBeyond() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('2100-12-10'),('2101-01-01')");
    bench.calendar.Load();
    bench.calendar.GoBy(1);  // begins on a Saturday; December began on a Wednesday
    bench.boxes.Close();
    MarkAndCommit(bench, CalendarMode::Holidays, {8});  // cell 17: the 5th of January
    QCOMPARE(bench.Marks(),
             (QStringList{u"Holiday 2100-12-10"_s, u"Holiday 2101-01-05"_s, u"Holiday 2101-01-07"_s}));
}

QTEST_GUILESS_MAIN(TstMonthMarks)
#include "tst_month_marks.moc"
