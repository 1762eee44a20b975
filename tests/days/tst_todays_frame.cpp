// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/calendar_window_bench.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

/// The days whose cells have this mark, after all days have been searched for anniversaries.
QList<int> DaysWith(CalendarBench& bench, bool MonthCell::*mark) {
    while (bench.calendar.IsSearchingDays()) {
        bench.calendar.GoOnSearchingDays();
    }
    QList<int> days;
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        if (bench.calendar.Grid().At(cell).*mark) {
            days.append(bench.calendar.Grid().At(cell).caption.toInt());
        }
    }
    return days;
}

struct Bench : CalendarBench {
    Bench() : CalendarBench(QDate(2026, 11, 22)) {
        store.Raw("DELETE FROM Kinenbi");
        store.Raw(
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,11,5,0),('b',0,0,31,0),"
            "('c',2026,11,6,0),('d',2025,11,7,0),('e',0,0,0,32),('f',0,12,8,0),('g',0,11,0,57)");
    }
};

}  // namespace

/// The frame around today, and the dots at days with anniversaries.
class TstTodaysFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNothingIsMarked();
    void TodayIsFramedEvenIfAnotherDayIsSelected();
    void DaysWithAnniversariesHaveDots();
    void DotsFollowTheBook();
    void TheWindowHasRoomForAllChoices_data();
    void TheWindowHasRoomForAllChoices();
};

void TstTodaysFrame::ByDefaultNothingIsMarked() {
    Bench bench;
    bench.calendar.Load();
    QCOMPARE(DaysWith(bench, &MonthCell::isToday), QList<int>());
    QCOMPARE(DaysWith(bench, &MonthCell::hasAnniversary), QList<int>());
    QVERIFY(!bench.calendar.IsSearchingDays());
}

void TstTodaysFrame::TodayIsFramedEvenIfAnotherDayIsSelected() {
    Bench bench;
    bench.further.corrections.showsToday = true;
    bench.calendar.Load();
    bench.ClickDays({10});
    QCOMPARE(bench.PressedInGrid(), QList<int>{10});
    QCOMPARE(DaysWith(bench, &MonthCell::isToday), QList<int>{22});
    bench.calendar.GoBy(1);
    QCOMPARE(DaysWith(bench, &MonthCell::isToday), QList<int>());
}

void TstTodaysFrame::DaysWithAnniversariesHaveDots() {
    Bench bench;
    bench.further.corrections.showsToday = true;
    bench.calendar.Load();
    // The 16th is the third Monday; November 2026 has no fifth Saturday.
    QCOMPARE(DaysWith(bench, &MonthCell::hasAnniversary), (QList<int>{5, 6, 16}));
    bench.calendar.GoBy(1);
    QCOMPARE(DaysWith(bench, &MonthCell::hasAnniversary), (QList<int>{8, 21, 31}));
    bench.calendar.GoBy(-13);
    QCOMPARE(DaysWith(bench, &MonthCell::hasAnniversary), (QList<int>{5, 7, 17, 29}));
}

void TstTodaysFrame::DotsFollowTheBook() {
    Bench bench;
    bench.further.corrections.showsToday = true;
    bench.calendar.Load();
    bench.store.Raw("UPDATE Kinenbi SET Day=12 WHERE Name='a'");
    bench.calendar.AnniversariesChanged();
    QCOMPARE(DaysWith(bench, &MonthCell::hasAnniversary), (QList<int>{6, 12, 16}));
}

void TstTodaysFrame::TheWindowHasRoomForAllChoices_data() {
    QTest::addColumn<int>("under");
    QTest::addColumn<QString>("below");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("nothing") << 0 << QString() << QString();
    QTest::newRow("six-day week") << 1 << u"大安"_s << u"旧暦10月14日 大安"_s;
    QTest::newRow("old date") << 2 << u"10/14"_s << u"旧暦10月14日 大安"_s;
}

void TstTodaysFrame::TheWindowHasRoomForAllChoices() {
    QFETCH(const int, under);
    CalendarWindowBench bench(QDate(2026, 11, 22));
    bench.further.calendar.underDays = under;
    bench.further.calendar.eras.byDate = true;
    bench.further.corrections.showsToday = true;
    bench.Open();
    QCOMPARE(bench.Heading(), u"2026年（令和8年）11月"_s);
    QTEST(bench.Cell(22).toolTip(), "toolTip");
    const int numberHeight = bench.Cell(22).fontMetrics().height();
    QCOMPARE(bench.Cell(22).sizeHint().height() >= numberHeight * 3 / 2, under != 0);
    QCOMPARE(bench.Cell(1).sizeHint(), bench.Cell(30).sizeHint());
    bench.calendar.Load();
    QTEST(bench.Day(22).below, "below");
    const auto& heading = bench.Find<QLabel>(u"Label1"_s);
    const EraStyle eras{.byDate = true};
    QVERIFY(heading.width() >= heading.fontMetrics().horizontalAdvance(MonthHeading(1989, 1, eras)));
}

QTEST_MAIN(TstTodaysFrame)
#include "tst_todays_frame.moc"
