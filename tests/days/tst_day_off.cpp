// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "days/day_off.h"
#include "days/day_rule.h"
#include "days/law_holidays.h"
#include "days/table_holidays.h"
#include "store/day_store.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

struct OffBench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    HolidayListFile list{ProgramFolder(store.Folder())};
    LawHolidays law{list};
    TableHolidays table{database};

    void Mark(const QString& name, QDate day) {
        database.Execute(u"INSERT INTO "_s + name + u"  VALUES (" + DateLiteral(day) + u')');
    }
    bool ByLaw(int month, int day) { return IsDayOff(database, law, QDate(2026, month, day)); }
    bool ByTable(int month, int day) { return IsDayOff(database, table, QDate(2026, month, day)); }
};

}  // namespace

/// Whether a day is off for the user.
class TstDayOff : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HolidaysAreOff();
    void TheUsersMarksDecide();
    void AWeekendIsNotADayOff();
};

void TstDayOff::HolidaysAreOff() {
    OffBench bench;
    QVERIFY(bench.ByLaw(11, 23));
    QVERIFY(bench.ByTable(11, 23));
    QVERIFY(bench.ByLaw(5, 6));   // the substitute of a Sunday, three days later
    QVERIFY(bench.ByLaw(9, 22));  // between two holidays
    QVERIFY(!bench.ByTable(9, 22));
    QVERIFY(!bench.ByLaw(11, 24));
    QVERIFY(!bench.ByTable(11, 24));
}

void TstDayOff::TheUsersMarksDecide() {
    OffBench bench;
    bench.Mark(u"Holiday"_s, QDate(2026, 11, 24));
    bench.Mark(u"Usuallyday"_s, QDate(2026, 11, 23));
    bench.Mark(u"Halfday"_s, QDate(2026, 11, 3));
    for (const bool isLaw : {true, false}) {
        const auto isOff = [&](int day) { return isLaw ? bench.ByLaw(11, day) : bench.ByTable(11, day); };
        QVERIFY(isOff(24));
        QVERIFY(!isOff(23));
        QVERIFY(!isOff(3));
    }
    bench.Mark(u"Usuallyday"_s, QDate(2026, 11, 24));  // another program left both
    QVERIFY(!bench.ByLaw(11, 24));
}

void TstDayOff::AWeekendIsNotADayOff() {
    OffBench bench;
    QVERIFY(!bench.ByLaw(11, 21));
    QVERIFY(!bench.ByLaw(11, 22));
    bench.Mark(u"Holiday"_s, QDate(2026, 11, 21));
    QVERIFY(bench.ByLaw(11, 21));
}

QTEST_GUILESS_MAIN(TstDayOff)
#include "tst_day_off.moc"
