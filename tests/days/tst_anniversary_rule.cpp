// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <chrono>

#include "days/anniversary_texts.h"
#include "days/announced_bench.h"
#include "store/day_store.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

/// The week of a date within its month for its weekday, 1 to 5, and the weekday, 1 (Sunday) to 7 (Saturday),
/// according to the standard library's calendar.
struct WeekdayOfMonth {
    int week;
    int weekday;
};

WeekdayOfMonth WeekdayOf(QDate date) {
    const std::chrono::year_month_day day(std::chrono::year(date.year()),
                                          std::chrono::month(static_cast<unsigned>(date.month())),
                                          std::chrono::day(static_cast<unsigned>(date.day())));
    const std::chrono::year_month_weekday counted{std::chrono::sys_days(day)};
    return {static_cast<int>(counted.index()), static_cast<int>(counted.weekday().c_encoding()) + 1};
}

}  // namespace

/// The days to which the rules for anniversaries and national holidays apply.
class TstAnniversaryRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAnniversaryFalls_data();
    void AnAnniversaryFalls();
    void EveryWeekCodeFallsOnlyOnItsDay();
    void HasNationalHolidays();
    void NoNationalHolidaysAreNoError();
};

void TstAnniversaryRule::AnAnniversaryFalls_data() {
    QTest::addColumn<QString>("row");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("falls");
    const auto row = [](const char* name, const QString& insert, QDate date, bool falls) {
        QTest::newRow(name) << insert << date << falls;
    };
    const QString monthly = Insert(u"a"_s, 0, 0, 15, 0);
    row("monthly, on its day", monthly, QDate(1998, 10, 15), true);
    row("monthly, on its day of another year", monthly, QDate(2100, 2, 15), true);
    row("monthly, the day after", monthly, QDate(1998, 10, 16), false);
    const QString yearly = Insert(u"a"_s, 0, 10, 3, 0);
    row("yearly, on its day", yearly, QDate(1998, 10, 3), true);
    row("yearly, in the next month", yearly, QDate(1998, 11, 3), false);
    const QString once = Insert(u"a"_s, 1998, 10, 3, 0);
    row("once, on its day", once, QDate(1998, 10, 3), true);
    row("once, a year later", once, QDate(1999, 10, 3), false);
    const QString secondMonday = Insert(u"a"_s, 0, 0, 0, 22);
    row("second Monday", secondMonday, QDate(1998, 10, 12), true);
    row("second Monday of another month", secondMonday, QDate(2026, 11, 9), true);
    row("first Monday", secondMonday, QDate(1998, 10, 5), false);
    row("second Tuesday", secondMonday, QDate(1998, 10, 13), false);
    const QString januaryMonday = Insert(u"a"_s, 0, 1, 0, 22);
    row("second Monday of January", januaryMonday, QDate(2026, 1, 12), true);
    row("second Monday of February", januaryMonday, QDate(2026, 2, 9), false);
    const QString both = Insert(u"a"_s, 0, 0, 3, 22);
    row("day and week, on the day", both, QDate(1998, 10, 3), true);
    row("day and week, on the weekday", both, QDate(1998, 10, 12), true);
    row("day and week, elsewhere", both, QDate(1998, 10, 13), false);
    row("a day that the month does not have", Insert(u"a"_s, 0, 2, 30, 0), QDate(1998, 3, 30), false);
}

void TstAnniversaryRule::AnAnniversaryFalls() {
    QFETCH(QString, row);
    QFETCH(QDate, date);
    QFETCH(bool, falls);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    QCOMPARE(database.Execute(row), 1);
    QCOMPARE(AnniversariesOf(database, date), falls ? u"a"_s : QString());
}

void TstAnniversaryRule::EveryWeekCodeFallsOnlyOnItsDay() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(Insert(u"never"_s, 0, 0, 0, 0));
    store::DayTransaction transaction(database);
    for (int week = 1; week <= 5; ++week) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            database.Execute(Insert(u"w%1%2"_s.arg(week).arg(weekday), 0, 0, 0, 10 * week + weekday));
        }
    }
    transaction.Commit();
    for (QDate date(2026, 1, 1); date.year() == 2026; date = date.addDays(1)) {
        const auto [week, weekday] = WeekdayOf(date);
        QCOMPARE(AnniversariesOf(database, date), u"w%1%2"_s.arg(week).arg(weekday));
        // The daily check queries with the two digits swapped, and there is no week 6 or 7.
        QCOMPARE(AnnouncedNames(database, date).contains(u"w%1%2"_s.arg(weekday).arg(week)), weekday <= 5);
    }
}

void TstAnniversaryRule::HasNationalHolidays() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    QCOMPARE(Names(database.RunQuery(HolidayQuery(1, 1))), u"元日"_s);
    QCOMPARE(Names(database.RunQuery(HolidayQuery(1, 2))), QString());
    QCOMPARE(Names(database.RunQuery(MonthHolidayQuery(5))), u"憲法記念日 みどりの日 こどもの日"_s);
    const store::ResultSet november = database.RunQuery(MonthHolidayQuery(11));
    QCOMPARE(november.Count(), 2);
    QCOMPARE(november.Row(1).Integer(u"Day"), 23);
    QCOMPARE(database.Execute(u"INSERT INTO Syukuzitu VALUES (\"never\",2,30)"_s), 1);
    QCOMPARE(Names(database.RunQuery(MonthHolidayQuery(2))), u"建国記念の日 天皇誕生日 never"_s);
}

void TstAnniversaryRule::NoNationalHolidaysAreNoError() {
    const store::DayStore store;
    store.Raw("DELETE FROM Syukuzitu");
    store::DayDatabase database(store.Path());
    for (int month = 1; month <= 12; ++month) {
        QCOMPARE(database.RunQuery(MonthHolidayQuery(month)).Count(), 0);
    }
}

QTEST_GUILESS_MAIN(TstAnniversaryRule)
#include "tst_anniversary_rule.moc"
