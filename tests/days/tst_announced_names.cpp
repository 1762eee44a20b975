// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/announced_bench.h"
#include "store/day_store.h"
#include "support/further_flags.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

QStringList NamesWith(const FurtherSettings& further, QDate day, const store::DayStore& store = {}) {
    store::DayDatabase database(store.Path());
    const TableHolidays holidays(database);
    return AnnouncedNames({.dayDatabase = database, .holidays = holidays, .further = further}, day);
}

/// The week within the month and the weekday (1: Sunday), counted day by day.
std::pair<int, int> WeekAndWeekday(QDate day) {
    int week = 0;
    for (QDate each(day.year(), day.month(), 1); each <= day; each = each.addDays(1)) {
        week += each.dayOfWeek() == day.dayOfWeek() ? 1 : 0;
    }
    return {week, day.dayOfWeek() == Qt::Sunday ? 1 : day.dayOfWeek() + 1};
}

/// The number of different pairs of month and weekday with a fifth week in 2024, 2025 or 2026.
int FifthWeekdays() {
    QSet<std::pair<int, int>> all;
    for (QDate day(2024, 1, 1); day.year() <= 2026; day = day.addDays(1)) {
        const auto [week, weekday] = WeekAndWeekday(day);
        if (week == 5) {
            all.insert({day.month(), weekday});
        }
    }
    return static_cast<int>(all.size());
}

}  // namespace

/// The names that the main window announces on a day.
class TstAnnouncedNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheDigitsOfTheWeekCodeAreSwappedOnPurpose();
    void AnniversariesComeBeforeHolidaysEachInStoredOrder();
    void ADayWithNothingHasNoNames();
    void TheThirdMondayIsAnnouncedOnTheSecondTuesdayAndNeverOnItself();
    void AllThirtyFiveCodesOverAYear();
    void CorrectedEachCodeOfEachMonthIsAnnouncedOnItsOwnDay();
    void NoOtherCorrectionChangesTheDay();
    void AtMostTenThousandNamesAreRead();
    void OnlyTheirSwitchesAddOldDateAndSeason_data();
    void OnlyTheirSwitchesAddOldDateAndSeason();
    void TheOldCalendarSays_data();
    void TheOldCalendarSays();
    void TheOldCalendarComesLast();
};

void TstAnnouncedNames::TheDigitsOfTheWeekCodeAreSwappedOnPurpose() {
    QCOMPARE(AnnouncedWeekCode(QDate(1998, 10, 3)), 71);   // Saturday, week 1
    QCOMPARE(AnnouncedWeekCode(QDate(1998, 10, 12)), 22);  // second Monday
    QCOMPARE(AnnouncedWeekCode(QDate(1998, 10, 13)), 32);  // second Tuesday
}

void TstAnnouncedNames::AnniversariesComeBeforeHolidaysEachInStoredOrder() {
    const store::DayStore store;
    store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "('後',0,11,23,0),('先',2026,0,23,0),('他',0,11,24,0)");
    store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('もう一つの祝日',11,23)");
    store::DayDatabase database(store.Path());
    QCOMPARE(AnnouncedNames(database, QDate(2026, 11, 23)),
             (QStringList{u"後"_s, u"先"_s, u"勤労感謝の日"_s, u"もう一つの祝日"_s}));
}

void TstAnnouncedNames::ADayWithNothingHasNoNames() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    QCOMPARE(AnnouncedNames(database, QDate(2026, 11, 20)), QStringList());
}

void TstAnnouncedNames::TheThirdMondayIsAnnouncedOnTheSecondTuesdayAndNeverOnItself() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('第三月曜',0,0,0,32)");
    store::DayDatabase database(store.Path());
    for (QDate day(2026, 1, 1); day.year() == 2026; day = day.addDays(1)) {
        const bool secondTuesday = WeekAndWeekday(day) == std::pair(2, 3);
        QCOMPARE(AnnouncedNames(database, day).contains(u"第三月曜"_s), secondTuesday);
    }
}

void TstAnnouncedNames::AllThirtyFiveCodesOverAYear() {
    const store::DayStore store;
    store.Raw("DELETE FROM Syukuzitu");
    for (int week = 1; week <= 5; ++week) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            const QByteArray code = QByteArray::number(10 * week + weekday);
            store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('" + code + "',0,0,0," + code +
                      ")");
        }
    }
    store::DayDatabase database(store.Path());
    QSet<QString> announced;
    for (QDate day(2026, 1, 1); day.year() == 2026; day = day.addDays(1)) {
        const auto [week, weekday] = WeekAndWeekday(day);
        // The code 10 * week + weekday is announced on the day whose weekday number equals the code's week
        // and whose week equals the code's weekday number.
        const QStringList expected =
            weekday <= 5 ? QStringList{QString::number(10 * weekday + week)} : QStringList();
        QCOMPARE(AnnouncedNames(database, day), expected);
        announced.unite(QSet<QString>(expected.begin(), expected.end()));
    }
    QCOMPARE(announced.size(), 25);  // those for a Friday or a Saturday are never announced
}

void TstAnnouncedNames::CorrectedEachCodeOfEachMonthIsAnnouncedOnItsOwnDay() {
    const store::DayStore store;
    store.Raw("DELETE FROM Syukuzitu");
    for (int month = 0; month <= 12; ++month) {
        QByteArrayList rows;
        for (int code = 11; code <= 57; ++code) {
            if (code % 10 >= 1 && code % 10 <= 7) {
                const QByteArray numbers = QByteArray::number(month) + ",0," + QByteArray::number(code);
                rows.append("('" + numbers + "',0," + numbers + ")");
            }
        }
        QCOMPARE(rows.size(), 35);
        store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES " + rows.join(','));
    }
    store::DayDatabase database(store.Path());
    QSet<QString> announced;
    for (QDate day(2024, 1, 1); day.year() <= 2026; day = day.addDays(1)) {
        const auto [week, weekday] = WeekAndWeekday(day);
        const QStringList expected{u"0,0,%1%2"_s.arg(week).arg(weekday),
                                   u"%1,0,%2%3"_s.arg(day.month()).arg(week).arg(weekday)};
        const QStringList names = AnnouncedNames(database, day, {.weekdayAnniversaries = true});
        QCOMPARE(names, expected);
        announced.unite(QSet<QString>(names.begin(), names.end()));
    }
    // Those of every month, the first four of each weekday in each month, and the existing fifth ones.
    QCOMPARE(announced.size(), 35 + 12 * 28 + FifthWeekdays());
}

void TstAnnouncedNames::NoOtherCorrectionChangesTheDay() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('第三月曜',0,0,0,32)");
    store::DayDatabase database(store.Path());
    const Corrections others{.editorTakesDate = true,
                             .dateTurnsAtMidnight = true,
                             .longUsage = true,
                             .searchAcrossMonths = true,
                             .lapIntervals = true,
                             .showsToday = true,
                             .keepsMarksOnClose = true,
                             .savesImmediately = true};
    QCOMPARE(AnnouncedNames(database, QDate(2026, 11, 10), others), QStringList{u"第三月曜"_s});
    QCOMPARE(AnnouncedNames(database, QDate(2026, 11, 16), others), QStringList());
}

void TstAnnouncedNames::AtMostTenThousandNamesAreRead() {
    const store::DayStore store;
    store.Raw(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60001)"
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT i,0,11,3,0 FROM n");
    store::DayDatabase database(store.Path());
    const QStringList names = AnnouncedNames(database, QDate(2026, 11, 3));
    QCOMPARE(names.mid(9998), (QStringList{u"9999"_s, u"10000"_s, u"文化の日"_s}));
}

void TstAnnouncedNames::OnlyTheirSwitchesAddOldDateAndSeason_data() {
    AddRowOfEachFlag();
}

void TstAnnouncedNames::OnlyTheirSwitchesAddOldDateAndSeason() {
    QFETCH(FurtherSettings, further);
    const QHash<QByteArray, QString> added{{"OldDate", u"旧暦10月14日 大安"_s}, {"Seasons", u"小雪"_s}};
    const QByteArray key = QTest::currentDataTag();
    QCOMPARE(NamesWith(further, QDate(2026, 11, 22)),
             added.contains(key) ? QStringList{added[key]} : QStringList());
}

void TstAnnouncedNames::TheOldCalendarSays_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("old date and season")
        << QDate(2026, 11, 22) << QStringList{u"旧暦10月14日 大安"_s, u"小雪"_s};
    QTest::newRow("leap month") << QDate(2025, 7, 25) << QStringList{u"旧暦閏6月1日 赤口"_s};
    QTest::newRow("a day between the terms")
        << QDate(2026, 2, 3) << QStringList{u"旧暦12月16日 先負"_s, u"節分"_s};
    QTest::newRow("the last known day") << QDate(2100, 12, 31) << QStringList{u"旧暦12月1日 赤口"_s};
    QTest::newRow("after the last known day") << QDate(2101, 1, 5) << QStringList();
    QTest::newRow("before the first known day") << QDate(1899, 12, 22) << QStringList();
}

void TstAnnouncedNames::TheOldCalendarSays() {
    QFETCH(const QDate, day);
    FurtherSettings further;
    further.calendar.announcesOldDate = true;
    further.calendar.announcesSeasons = true;
    QTEST(NamesWith(further, day), "texts");
}

void TstAnnouncedNames::TheOldCalendarComesLast() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('記念日',0,2,11,0),('二つ目',0,2,4,0)");
    FurtherSettings further;
    further.calendar.announcesOldDate = true;
    further.calendar.announcesSeasons = true;
    store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('休み',2,4)");
    QCOMPARE(NamesWith(further, QDate(2026, 2, 4), store),
             (QStringList{u"二つ目"_s, u"休み"_s, u"旧暦12月17日 仏滅"_s, u"立春"_s}));
}

QTEST_GUILESS_MAIN(TstAnnouncedNames)
#include "tst_announced_names.moc"
