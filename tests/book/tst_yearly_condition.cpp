// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/yearly_condition.h"

#include <QRandomGenerator>
#include <QTest>

#include "book/almanac.h"
#include "book/whole_work.h"
#include "days/anniversary_model.h"
#include "days/search_texts.h"
#include "store/day_store.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr quint32 kSeed = 0x9EA2;
constexpr int kRows = 1500;
constexpr int kRanges = 400;

const QDate kFirstDay(100, 1, 1);
const QDate kLastDay(9999, 12, 31);

class Dice {
public:
    int From(int first, int last) { return m_generator.bounded(first, last + 1); }
    bool Once(int times) { return From(1, times) == 1; }

    /// Mostly rows of every year; some have values that no calendar has.
    days::Anniversary Row(int number) {
        days::Anniversary row{u"n%1"_s.arg(number), 0, From(1, 12), 0, 0};
        (Once(2) ? row.day : row.week) = 1;
        row.day = row.day != 0 || Once(10) ? From(1, 31) : 0;
        row.week = row.week != 0 || Once(10) ? 10 * From(1, 5) + From(1, 7) : 0;
        if (Once(8)) {
            row = {row.name, From(-1, 1), From(-1, 14), From(-1, 40), Once(2) ? From(-60, 140) : row.week};
        }
        return row;
    }

    SearchRange Range() {
        QDate first = QDate(From(100, 9000), 1, 1).addDays(From(0, 364));
        switch (From(0, 9)) {
            case 0:
                return {first, first};
            case 1:
                return {first, kLastDay};
            case 2:
                return {kFirstDay, first};
            case 3:
                return {first, first.addDays(From(0, 300'000))};
            case 4:
            case 5:
                return {first, first.addDays(From(0, 5000))};
            default:
                return {first, first.addDays(From(0, 500))};
        }
    }

private:
    QRandomGenerator m_generator{kSeed};
};

SearchConditions Within(QDate first, QDate last) {
    SearchConditions conditions;
    conditions.dates = SearchRange{first, last};
    conditions.acrossMonths = true;
    return conditions;
}

QStringList NamesOf(const days::Anniversaries& rows) {
    QStringList names;
    for (const days::Anniversary& row : rows) {
        names.append(row.name);
    }
    return names;
}

QStringList Found(store::DayDatabase& database, const SearchConditions& conditions) {
    QStringList names;
    for (const days::DayListRow& row : AllOf(FindAnniversaries(database, conditions).rows)) {
        names.append(row.name);
    }
    return names;
}

/// Whether a search from `first` to `last` finds an anniversary of every year.
bool IsFound(const days::Anniversary& row, QDate first, QDate last) {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(days::InsertText(row));
    return Found(database, Within(first, last)).size() == 1;
}

}  // namespace

/// The search for anniversaries of every year in a range that may cross months and years.
class TstYearlyCondition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WritesTheCondition_data();
    void WritesTheCondition();
    void OnlyTheQueryForEveryYearDiffers();
    void WithoutDatesOrWithoutTheBoxNothingDiffers();
    void FindsWhatFallsIntoTheRange();
    void FindsInALargeTable();
    void KnowsTheDaysOfEachYear_data();
    void KnowsTheDaysOfEachYear();
};

void TstYearlyCondition::WritesTheCondition_data() {
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<QString>("text");

    QTest::newRow("a Saturday") << QDate(1998, 10, 3) << QDate(1998, 10, 3)
                                << u" AND ( ( Month=10 AND ( Day BETWEEN 3 AND 3"
                                   u" OR Week BETWEEN 17 AND 17 ) ) )"_s;
    QTest::newRow("across months") << QDate(1998, 10, 31) << QDate(1998, 11, 3)
                                   << u" AND ( ( Month=10 AND ( Day BETWEEN 31 AND 31"
                                      u" OR Week BETWEEN 57 AND 57 ) )"
                                      u" OR ( Month=11 AND ( Day BETWEEN 1 AND 3"
                                      u" OR Week BETWEEN 11 AND 13 ) ) )"_s;
    QTest::newRow("across years") << QDate(1998, 12, 31) << QDate(1999, 1, 1)
                                  << u" AND ( ( Month=1 AND ( Day BETWEEN 1 AND 1"
                                     u" OR Week BETWEEN 16 AND 16 ) )"
                                     u" OR ( Month=12 AND ( Day BETWEEN 31 AND 31"
                                     u" OR Week BETWEEN 55 AND 55 ) ) )"_s;
}

void TstYearlyCondition::WritesTheCondition() {
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QTEST(YearlyCondition(first, last), "text");
}

void TstYearlyCondition::OnlyTheQueryForEveryYearDiffers() {
    for (const auto& [first, last] : {std::pair{QDate(1998, 10, 3), QDate(1998, 10, 3)},
                                      {QDate(1998, 11, 20), QDate(1999, 2, 10)},
                                      {QDate(1998, 6, 10), QDate(2000, 6, 1)},
                                      {QDate(1998, 1, 1), kLastDay}}) {
        SearchConditions conditions = Within(first, last);
        conditions.name = u"例会"_s;
        const auto texts = SearchTexts(conditions);
        conditions.acrossMonths = false;
        const auto before = SearchTexts(conditions);
        QCOMPARE(texts[0], before[0]);
        QCOMPARE(texts[1], u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0 AND Name=\"例会\""_s +
                               YearlyCondition(first, last));
        QVERIFY(texts[1] != before[1]);
        QCOMPARE(texts[2], before[2]);
    }
}

void TstYearlyCondition::WithoutDatesOrWithoutTheBoxNothingDiffers() {
    SearchConditions withoutDates;
    withoutDates.acrossMonths = true;
    QCOMPARE(SearchTexts(withoutDates), SearchTexts({}));
    SearchConditions withoutBox = Within(QDate(1998, 11, 20), QDate(1999, 2, 10));
    withoutBox.everyYear = false;
    SearchConditions before = withoutBox;
    before.acrossMonths = false;
    QCOMPARE(SearchTexts(withoutBox), SearchTexts(before));
}

void TstYearlyCondition::FindsWhatFallsIntoTheRange() {
    qInfo("seed %u", kSeed);
    const Almanac almanac;
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    Dice dice;
    days::Anniversaries stored;
    {
        store::DayTransaction transaction(database);
        for (int i = 0; i < kRows; ++i) {
            stored.push_back(dice.Row(i));
            database.Execute(days::InsertText(stored.back()));
        }
        transaction.Commit();
    }
    std::size_t found = 0;
    std::size_t most = 0;
    for (int i = 0; i < kRanges; ++i) {
        const SearchRange range = dice.Range();
        days::Search search;
        search.hasDates = true;
        search.start = range.start;
        search.end = range.end;
        const auto others = days::SearchQueries(search);
        const days::Anniversaries falling = almanac.Falling(stored, range.start, range.end);
        const QStringList expected = NamesOf(days::Those(stored, others[0].isMeant)) + NamesOf(falling) +
                                     NamesOf(days::Those(stored, others[2].isMeant));
        const QStringList names = Found(database, Within(range.start, range.end));
        QVERIFY2(names == expected, qPrintable(range.start.toString() + u" - " + range.end.toString()));
        found += falling.size();
        most = std::max(most, falling.size());
    }
    QVERIFY(found > std::size_t{kRanges} * kRows / 4);
    QVERIFY(most > kRows * 4 / 5 && most < kRows);
}

void TstYearlyCondition::FindsInALargeTable() {
    const Almanac almanac;
    const store::DayStore store;
    store.Raw(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 70000)"
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,1 + i % 12,"
        "CASE WHEN i % 5 THEN 1 + i % 31 ELSE 0 END,"
        "CASE WHEN i % 5 THEN 0 ELSE 10 * (1 + i % 6) + i % 8 END FROM n");
    store::DayDatabase database(store.Path());
    const days::Anniversaries all =
        days::AnniversariesIn(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s));
    for (const auto& [first, last] : {std::pair{QDate(1998, 11, 20), QDate(1999, 2, 10)},
                                      {QDate(1998, 2, 28), QDate(1998, 2, 28)},
                                      {QDate(1998, 2, 28), kLastDay}}) {
        const QStringList expected = NamesOf(almanac.Falling(all, first, last));
        QVERIFY(expected.size() > 100 && expected.size() < 70'000);
        QCOMPARE(Found(database, Within(first, last)), expected);
    }
}

void TstYearlyCondition::KnowsTheDaysOfEachYear_data() {
    QTest::addColumn<days::Anniversary>("row");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<bool>("isFound");

    const days::Anniversary leapDay{u"a"_s, 0, 2, 29, 0};
    const days::Anniversary fifthMonday{u"a"_s, 0, 2, 0, 52};   // 29 February 2016 is one
    const days::Anniversary thirdMonday{u"a"_s, 0, 10, 0, 32};  // 19 October 1998, 18 October 1999
    const days::Anniversary either{u"a"_s, 0, 10, 3, 32};
    const auto row = [](const char* label, const days::Anniversary& stored, QDate first, QDate last,
                        bool isFound) { QTest::newRow(label) << stored << first << last << isFound; };
    row("in a month between", {u"a"_s, 0, 12, 31, 0}, {1998, 11, 20}, {1999, 2, 10}, true);
    row("first day", {u"a"_s, 0, 11, 20, 0}, {1998, 11, 20}, {1999, 2, 10}, true);
    row("before it", {u"a"_s, 0, 11, 19, 0}, {1998, 11, 20}, {1999, 2, 10}, false);
    row("last day", {u"a"_s, 0, 2, 10, 0}, {1998, 11, 20}, {1999, 2, 10}, true);
    row("after it", {u"a"_s, 0, 2, 11, 0}, {1998, 11, 20}, {1999, 2, 10}, false);
    row("one day short of a year", {u"a"_s, 0, 6, 9, 0}, {1998, 6, 10}, {1999, 6, 8}, false);
    row("a year", {u"a"_s, 0, 6, 9, 0}, {1998, 6, 10}, {1999, 6, 9}, true);
    row("29 February, not this year", leapDay, {1999, 1, 1}, {1999, 12, 31}, false);
    row("29 February, this year", leapDay, {2000, 1, 1}, {2000, 12, 31}, true);
    row("29 February, later in a leap year", leapDay, {2000, 3, 1}, {2004, 2, 28}, false);
    row("29 February, itself", leapDay, {2004, 2, 29}, {2004, 2, 29}, true);
    row("29 February, eight years without one", leapDay, {1896, 3, 1}, {1904, 2, 28}, false);
    row("fifth Monday of February, 15 years without", fifthMonday, {2001, 1, 1}, {2015, 12, 31}, false);
    row("fifth Monday of February", fifthMonday, {2001, 1, 1}, {2016, 2, 29}, true);
    row("third Monday", thirdMonday, {1998, 10, 19}, {1998, 10, 19}, true);
    row("the days after it", thirdMonday, {1998, 10, 20}, {1998, 10, 31}, false);
    row("until before that of the next year", thirdMonday, {1998, 10, 20}, {1999, 10, 17}, false);
    row("until that of the next year", thirdMonday, {1998, 10, 20}, {1999, 10, 18}, true);
    row("day and week, by its day", either, {1998, 10, 3}, {1998, 10, 3}, true);
    row("day and week, by its week", either, {1998, 10, 19}, {1998, 10, 19}, true);
    row("day and week, neither", either, {1998, 10, 4}, {1998, 10, 18}, false);
    row("from a day on", {u"a"_s, 0, 6, 9, 0}, {2026, 11, 23}, kLastDay, true);
    row("until a day", {u"a"_s, 0, 12, 31, 0}, kFirstDay, {2026, 11, 23}, true);
    row("fifth Monday of February, from a day on", fifthMonday, {2026, 11, 23}, kLastDay, true);
    row("neither day nor week", {u"a"_s, 0, 6, 0, 0}, kFirstDay, kLastDay, false);
    row("30 February", {u"a"_s, 0, 2, 30, 0}, kFirstDay, kLastDay, false);
    row("13th month", {u"a"_s, 0, 13, 1, 0}, kFirstDay, kLastDay, false);
    row("weekday 8", {u"a"_s, 0, 6, 0, 18}, kFirstDay, kLastDay, false);
}

void TstYearlyCondition::KnowsTheDaysOfEachYear() {
    QFETCH(days::Anniversary, row);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(bool, isFound);
    QCOMPARE(IsFound(row, first, last), isFound);
}

QTEST_GUILESS_MAIN(TstYearlyCondition)
#include "tst_yearly_condition.moc"
