// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/search_fields.h"

#include <QTest>
#include <climits>

#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const QDate kFirstDay(100, 1, 1);
const QDate kLastDay(9999, 12, 31);

/// Fields with a date range whose ends are both in 1998.
SearchFields Filled() {
    SearchFields fields;
    fields.start = {u"1998"_s, u"10"_s, u"3"_s};
    fields.end = {u"1998"_s, u"12"_s, u"31"_s};
    return fields;
}

}  // namespace

/// The fields of the search window.
class TstSearchFields : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EnablesTheFieldsOfEachCondition_data();
    void EnablesTheFieldsOfEachCondition();
    void NormalisesDates_data();
    void NormalisesDates();
    void RefusesYearsWithoutACalendar_data();
    void RefusesYearsWithoutACalendar();
    void AMonthWithoutAPredecessorIsAnOverflow();
    void ReplacesOneEndOfTheRange();
    void TakesTheBoxesAsTheyAre();
    void NameAndDatesCountOnlyAsChosenConditions();
    void TakesTheNormalisedDates();
    void ARangeThatEndsBeforeItBeginsIsNotSearched();
    void BothDatesAreReadInEveryCase_data();
    void BothDatesAreReadInEveryCase();
};

void TstSearchFields::EnablesTheFieldsOfEachCondition_data() {
    QTest::addColumn<bool>("byName");
    QTest::addColumn<bool>("byDate");
    QTest::addColumn<RangeKind>("range");
    QTest::addColumn<SearchEnabling>("expected");
    // Enabled: name, range, start, end.
    QTest::newRow("none") << false << false << RangeKind::FromTo << SearchEnabling{};
    QTest::newRow("name") << true << false << RangeKind::After << SearchEnabling{true, false, false, false};
    QTest::newRow("from to") << false << true << RangeKind::FromTo << SearchEnabling{false, true, true, true};
    QTest::newRow("after") << false << true << RangeKind::After << SearchEnabling{false, true, true, false};
    QTest::newRow("before") << true << true << RangeKind::Before << SearchEnabling{true, true, false, true};
}

void TstSearchFields::EnablesTheFieldsOfEachCondition() {
    QFETCH(bool, byName);
    QFETCH(bool, byDate);
    QFETCH(RangeKind, range);
    QFETCH(SearchEnabling, expected);
    QVERIFY(EnablingOf(byName, byDate, range) == expected);
}

void TstSearchFields::NormalisesDates_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<QDate>("date");

    QTest::newRow("a date") << 1998 << 10 << 3 << QDate(1998, 10, 3);
    QTest::newRow("past the end of February") << 1998 << 2 << 31 << QDate(1998, 3, 3);
    QTest::newRow("leap day") << 2000 << 2 << 30 << QDate(2000, 3, 1);
    QTest::newRow("month 13") << 1998 << 13 << 1 << QDate(1999, 1, 1);
    QTest::newRow("month 0") << 1998 << 0 << 31 << QDate(1997, 12, 31);
    QTest::newRow("day 0") << 1998 << 3 << 0 << QDate(1998, 2, 28);
    QTest::newRow("both below") << 1998 << -1 << -1 << QDate(1997, 10, 30);
    QTest::newRow("the first month has 31 days and rolls over before the days are counted")
        << 1998 << 14 << 31 << QDate(1999, 3, 3);
    QTest::newRow("first") << 100 << 1 << 1 << kFirstDay;
    QTest::newRow("last") << 9999 << 12 << 31 << kLastDay;
}

void TstSearchFields::NormalisesDates() {
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QTEST(RolledDate(year, month, day), "date");
}

void TstSearchFields::RefusesYearsWithoutACalendar_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");

    QTest::newRow("two digits") << 98 << 1 << 1;
    QTest::newRow("99") << 99 << 12 << 31;
    QTest::newRow("0") << 0 << 1 << 1;
    QTest::newRow("10000") << 10000 << 1 << 1;
    QTest::newRow("negative") << -1 << 1 << 1;
    QTest::newRow("99, rolled into 100") << 99 << 13 << 1;
    QTest::newRow("10000, rolled back into 9999") << 10000 << 0 << 31;
    QTest::newRow("rolled past the end") << 9999 << 12 << 32;
    QTest::newRow("rolled before the beginning") << 100 << 1 << 0;
    QTest::newRow("largest numbers") << 9999 << INT_MAX << INT_MAX;
    QTest::newRow("smallest numbers") << 100 << INT_MIN << INT_MIN;
}

void TstSearchFields::RefusesYearsWithoutACalendar() {
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, RolledDate(year, month, day));
}

void TstSearchFields::AMonthWithoutAPredecessorIsAnOverflow() {
    QVERIFY_THROWS_EXCEPTION(OverflowError, RolledDate(1998, INT_MIN, 1));
}

void TstSearchFields::ReplacesOneEndOfTheRange() {
    const QDate start(1998, 10, 3);
    const QDate end(1999, 1, 1);
    const SearchRange both = RangeOf(RangeKind::FromTo, start, end);
    QCOMPARE(both.start, start);
    QCOMPARE(both.end, end);
    const SearchRange after = RangeOf(RangeKind::After, start, end);
    QCOMPARE(after.start, start);
    QCOMPARE(after.end, kLastDay);
    const SearchRange before = RangeOf(RangeKind::Before, start, end);
    QCOMPARE(before.start, kFirstDay);
    QCOMPARE(before.end, end);
}

void TstSearchFields::TakesTheBoxesAsTheyAre() {
    for (unsigned boxes = 0; boxes < 8; ++boxes) {
        SearchFields fields = Filled();
        fields.oneDay = (boxes & 1U) != 0;
        fields.everyYear = (boxes & 2U) != 0;
        fields.everyMonth = (boxes & 4U) != 0;
        const auto conditions = ConditionsOf(fields);
        QVERIFY(conditions);
        QCOMPARE(conditions->oneDay, fields.oneDay);
        QCOMPARE(conditions->everyYear, fields.everyYear);
        QCOMPARE(conditions->everyMonth, fields.everyMonth);
    }
}

void TstSearchFields::NameAndDatesCountOnlyAsChosenConditions() {
    SearchFields fields = Filled();
    fields.name = u" a "_s;
    QVERIFY(!ConditionsOf(fields)->name);
    QVERIFY(!ConditionsOf(fields)->dates);
    fields.byName = true;
    QCOMPARE(*ConditionsOf(fields)->name, u" a "_s);
    fields.name.clear();
    QCOMPARE(*ConditionsOf(fields)->name, QString());
    fields.byDate = true;
    QCOMPARE(ConditionsOf(fields)->dates->start, QDate(1998, 10, 3));
    QCOMPARE(ConditionsOf(fields)->dates->end, QDate(1998, 12, 31));
}

void TstSearchFields::TakesTheNormalisedDates() {
    SearchFields fields = Filled();
    fields.byDate = true;
    fields.start = {u"1998"_s, u"2"_s, u"31"_s};
    fields.end = {u"1998"_s, u"13"_s, u" ０ "_s};
    QCOMPARE(ConditionsOf(fields)->dates->start, QDate(1998, 3, 3));
    QCOMPARE(ConditionsOf(fields)->dates->end, QDate(1998, 12, 31));
    fields.range = RangeKind::After;
    QCOMPARE(ConditionsOf(fields)->dates->end, kLastDay);
    fields.range = RangeKind::Before;
    QCOMPARE(ConditionsOf(fields)->dates->start, kFirstDay);
}

void TstSearchFields::ARangeThatEndsBeforeItBeginsIsNotSearched() {
    SearchFields fields = Filled();
    fields.end = fields.start;
    QVERIFY(ConditionsOf(fields));
    fields.end.day = u"2"_s;
    QVERIFY(!ConditionsOf(fields));  // even if the search ignores the date
    fields.byDate = true;
    QVERIFY(!ConditionsOf(fields));
    fields.range = RangeKind::After;
    QVERIFY(ConditionsOf(fields));
    fields.range = RangeKind::Before;
    QVERIFY(ConditionsOf(fields));
}

void TstSearchFields::BothDatesAreReadInEveryCase_data() {
    QTest::addColumn<bool>("byDate");
    QTest::addColumn<RangeKind>("range");

    for (const bool byDate : {false, true}) {
        QTest::addRow("from to, %d", byDate ? 1 : 0) << byDate << RangeKind::FromTo;
        QTest::addRow("after, %d", byDate ? 1 : 0) << byDate << RangeKind::After;
        QTest::addRow("before, %d", byDate ? 1 : 0) << byDate << RangeKind::Before;
    }
}

void TstSearchFields::BothDatesAreReadInEveryCase() {
    QFETCH(bool, byDate);
    QFETCH(RangeKind, range);
    for (DateFields SearchFields::*date : {&SearchFields::start, &SearchFields::end}) {
        for (QString DateFields::*part : {&DateFields::year, &DateFields::month, &DateFields::day}) {
            SearchFields fields = Filled();
            fields.byDate = byDate;
            fields.range = range;
            (fields.*date).*part = u"x"_s;
            QVERIFY_THROWS_EXCEPTION(TypeMismatchError, ConditionsOf(fields));
        }
        SearchFields fields = Filled();
        (fields.*date).year = u"98"_s;
        QVERIFY_THROWS_EXCEPTION(RunTimeError, ConditionsOf(fields));
    }
}

QTEST_GUILESS_MAIN(TstSearchFields)
#include "tst_search_fields.moc"
