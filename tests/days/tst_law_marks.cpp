// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "days/calendar_bench.h"
#include "days/law_holidays.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

/// A calendar with the days off of the law, on 1 May 2026: the 3rd (a Sunday) to the 6th are off.
struct LawBench : CalendarBench {
    QTemporaryDir dir;
    HolidayListFile list{ProgramFolder(dir.path())};
    LawHolidays law{list};
    MonthCalendar byLaw{{.dayDatabase = dayDatabase,
                         .holidays = law,
                         .further = further,
                         .list = CalendarBench::list,
                         .clock = time,
                         .boxes = boxes,
                         .handlers = handlers}};

    LawBench() : CalendarBench(QDate(2026, 5, 1)) { byLaw.Load(); }

    const MonthCell& Cell(int day) const { return byLaw.Grid().At(ShapeOf(QDate(2026, 5, 1)).CellOf(day)); }
    void Mark(CalendarMode mode, const QList<int>& days) {
        byLaw.ChooseMode(mode);
        for (const int day : days) {
            byLaw.ClickCell(ShapeOf(QDate(2026, 5, 1)).CellOf(day));
        }
        byLaw.ChooseMode(CalendarMode::Normal);
    }
};

}  // namespace

/// The user's marks in a calendar of the law's days off.
class TstLawMarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void DaysOffAreRedAndNamed();
    void LeavingAModeDoesNotStoreTheLawsDays();
    void OnlyDifferencesAreStored();
    void MarksMadeNeedlessByTheLawAreDeleted();
    void TheUsersMarksWin();
};

void TstLawMarks::DaysOffAreRedAndNamed() {
    const LawBench bench;
    for (const int day : {3, 4, 5, 6}) {
        QCOMPARE(bench.Cell(day).color, DayColor::Red);
    }
    QCOMPARE(bench.Cell(3).toolTip, u"憲法記念日"_s);
    QCOMPARE(bench.Cell(6).toolTip, u"振替休日"_s);
    QCOMPARE(bench.Cell(7).color, DayColor::Black);
    QCOMPARE(bench.Cell(7).toolTip, QString());
    QCOMPARE(SpokenName(bench.byLaw.Grid(), 17), u"2026年5月6日 水曜日、振替休日"_s);
}

void TstLawMarks::LeavingAModeDoesNotStoreTheLawsDays() {
    LawBench bench;
    bench.Mark(CalendarMode::Holidays, {});
    bench.Mark(CalendarMode::Halfdays, {});
    QCOMPARE(bench.Marks(), QStringList());
}

void TstLawMarks::OnlyDifferencesAreStored() {
    LawBench bench;
    bench.Mark(CalendarMode::Holidays, {7, 6, 10, 16});  // on, off, a Sunday off, a Saturday on
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 2026-05-07"_s, u"Holiday 2026-05-16"_s,
                                         u"Usuallyday 2026-05-06"_s, u"Usuallyday 2026-05-10"_s}));
    bench.Mark(CalendarMode::Halfdays, {5, 8, 9});  // a day off, a weekday, a Saturday off
    QCOMPARE(bench.Marks(),
             (QStringList{u"Holiday 2026-05-07"_s, u"Holiday 2026-05-16"_s, u"Halfday 2026-05-05"_s,
                          u"Halfday 2026-05-08"_s, u"Usuallyday 2026-05-06"_s, u"Usuallyday 2026-05-09"_s,
                          u"Usuallyday 2026-05-10"_s}));
    bench.Mark(CalendarMode::Holidays, {6, 7, 10});  // all toggled back
    bench.Mark(CalendarMode::Holidays, {16, 5});
    bench.Mark(CalendarMode::Halfdays, {8, 9, 16});
    QCOMPARE(bench.Marks(), QStringList());
}

void TstLawMarks::MarksMadeNeedlessByTheLawAreDeleted() {
    LawBench bench;
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('2026-05-04'),('2026-05-12')");
    bench.byLaw.BuildMonth(2026, 5);
    bench.Mark(CalendarMode::Holidays, {});
    QCOMPARE(bench.Marks(), QStringList{u"Holiday 2026-05-12"_s});
}

void TstLawMarks::TheUsersMarksWin() {
    LawBench bench;
    bench.store.Raw("INSERT INTO Usuallyday(Date) VALUES ('2026-05-06')");
    bench.store.Raw("INSERT INTO Halfday(Date) VALUES ('2026-05-04')");
    bench.byLaw.BuildMonth(2026, 5);
    QCOMPARE(bench.Cell(6).color, DayColor::Black);
    QCOMPARE(bench.Cell(6).toolTip, u"振替休日"_s);
    QCOMPARE(bench.Cell(4).color, DayColor::Blue);
    QCOMPARE(SpokenName(bench.byLaw.Grid(), 17), u"2026年5月6日 水曜日、振替休日、平日"_s);
}

QTEST_GUILESS_MAIN(TstLawMarks)
#include "tst_law_marks.moc"
