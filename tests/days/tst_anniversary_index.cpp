// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "days/anniversary_index.h"
#include "store/day_store.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

QString NamesOf(const std::vector<Anniversary>& rows, QDate day) {
    return AnniversaryIndex(rows).NamesOn(day).join(u' ');
}

QString ReadNames(const store::DayStore& store, int firstYear, int lastYear) {
    store::DayDatabase database = store::DayDatabase::OpenToRead(store.Path());
    QStringList names;
    for (const Anniversary& row : ReadAnniversaries(database, firstYear, lastYear)) {
        names.append(row.name);
    }
    return names.join(u' ');
}

}  // namespace

/// The anniversaries of a day, selected from all rows that were read.
class TstAnniversaryIndex : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ARowFalls_data();
    void ARowFalls();
    void RowsKeepTheirOrder();
    void NoRowsAreNoError();
    void RowsAreReadInTheirOrderWithAllValues();
    void RowsThatFallOnNoDayOfTheYearsAreNotRead();
    void ANumberTooLargeIsAnErrorIfItsRowFallsOnADay();
};

void TstAnniversaryIndex::ARowFalls_data() {
    QTest::addColumn<Anniversary>("row");
    QTest::addColumn<QDate>("day");
    QTest::addColumn<bool>("falls");
    const auto row = [](const char* name, const Anniversary& falling, QDate day, bool falls) {
        QTest::newRow(name) << falling << day << falls;
    };
    const Anniversary monthly{u"a"_s, 0, 0, 15, 0};
    row("monthly, on its day", monthly, QDate(1998, 10, 15), true);
    row("monthly, the day after", monthly, QDate(1998, 10, 16), false);
    const Anniversary yearly{u"a"_s, 0, 10, 3, 0};
    row("yearly, on its day", yearly, QDate(2100, 10, 3), true);
    row("yearly, in the next month", yearly, QDate(1998, 11, 3), false);
    const Anniversary once{u"a"_s, 1998, 10, 3, 0};
    row("once, on its day", once, QDate(1998, 10, 3), true);
    row("once, a year later", once, QDate(1999, 10, 3), false);
    const Anniversary ofOneYear{u"a"_s, 1998, 0, 3, 0};
    row("each month of a year", ofOneYear, QDate(1998, 2, 3), true);
    row("each month of a year, a year later", ofOneYear, QDate(1999, 2, 3), false);
    const Anniversary fifthMonday{u"a"_s, 0, 0, 0, 52};
    row("fifth Monday", fifthMonday, QDate(2026, 3, 30), true);
    row("fourth Monday", fifthMonday, QDate(2026, 3, 23), false);
    row("second Friday, its digits swapped", fifthMonday, QDate(2026, 3, 13), false);
    const Anniversary januaryMonday{u"a"_s, 0, 1, 0, 22};
    row("second Monday of January", januaryMonday, QDate(2026, 1, 12), true);
    row("second Monday of February", januaryMonday, QDate(2026, 2, 9), false);
    const Anniversary both{u"a"_s, 0, 0, 3, 22};
    row("day and week, on the day", both, QDate(1998, 10, 3), true);
    row("day and week, on the weekday", both, QDate(1998, 10, 12), true);
    row("day and week, elsewhere", both, QDate(1998, 10, 13), false);
    row("neither day nor week", {u"a"_s, 0, 0, 0, 0}, QDate(1998, 10, 13), false);
    row("a negative year", {u"a"_s, -1998, 10, 3, 0}, QDate(1998, 10, 3), false);
    row("a thirteenth month", {u"a"_s, 0, 13, 3, 0}, QDate(1998, 10, 3), false);
}

void TstAnniversaryIndex::ARowFalls() {
    QFETCH(Anniversary, row);
    QFETCH(QDate, day);
    QFETCH(bool, falls);
    QCOMPARE(NamesOf({row}, day), falls ? u"a"_s : QString());
}

void TstAnniversaryIndex::RowsKeepTheirOrder() {
    // 12 October 1998 is the second Monday.
    const std::vector<Anniversary> rows{
        {u"weekly"_s, 0, 0, 0, 22},     {u"once"_s, 1998, 10, 12, 0},        {u"other"_s, 0, 10, 13, 0},
        {u"twice"_s, 0, 10, 12, 22},    {u"monthly"_s, 0, 0, 12, 0},         {u"yearly"_s, 0, 10, 12, 0},
        {u"same"_s, 0, 10, 12, 0},      {u"same"_s, 0, 10, 12, 0},           {u"october"_s, 0, 10, 0, 22},
        {u"of 1998"_s, 1998, 0, 12, 0}, {u"october 1998"_s, 1998, 10, 0, 22}};
    QCOMPARE(NamesOf(rows, QDate(1998, 10, 12)),
             u"weekly once twice monthly yearly same same october of 1998 october 1998"_s);
}

void TstAnniversaryIndex::NoRowsAreNoError() {
    QCOMPARE(NamesOf({}, QDate(1998, 10, 12)), QString());
}

void TstAnniversaryIndex::RowsAreReadInTheirOrderWithAllValues() {
    const store::DayStore store;
    store.Raw(
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES "
        "(9,'後',1998,2,3,45),(4,'先',0,0,0,57),(5,'',2100,12,31,0)");
    store::DayDatabase database = store::DayDatabase::OpenToRead(store.Path());
    QCOMPARE(ReadAnniversaries(database, 1900, 2100),
             (std::vector<Anniversary>{
                 {u"先"_s, 0, 0, 0, 57}, {u""_s, 2100, 12, 31, 0}, {u"後"_s, 1998, 2, 3, 45}}));
}

void TstAnniversaryIndex::RowsThatFallOnNoDayOfTheYearsAreNotRead() {
    const store::DayStore store;
    store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('every',0,1,1,0),('before',1997,1,1,0),"
        "('first',1998,1,1,0),('last',2000,12,31,0),('after',2001,1,1,0),('huge',9000000000,1,1,0),"
        "('month',0,9000000000,1,0),('neither',0,1,0,0),('day',0,1,9000000000,0),('week',0,1,0,11)");
    QCOMPARE(ReadNames(store, 1998, 2000), u"every first last week"_s);
    QCOMPARE(ReadNames(store, 2001, 2001), u"every after week"_s);
}

void TstAnniversaryIndex::ANumberTooLargeIsAnErrorIfItsRowFallsOnADay() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('x',0,1,9000000000,11)");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ReadNames(store, 1998, 2000));
}

QTEST_GUILESS_MAIN(TstAnniversaryIndex)
#include "tst_anniversary_index.moc"
