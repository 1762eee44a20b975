// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_search.h"

#include <QRandomGenerator>
#include <QTest>

#include "book/anniversary_statements.h"
#include "book/search_fields.h"
#include "book/whole_work.h"
#include "core/errors.h"
#include "days/search_texts.h"
#include "store/day_store.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr quint32 kSeed = 0x5EA2C4;
constexpr int kRows = 1000;
constexpr int kSearches = 1000;

const QDate kFirstDay(100, 1, 1);
const QDate kLastDay(9999, 12, 31);

/// Days on both sides of every branch: ends of months and years, leap days, each month of a year, the same
/// days one and two years later, and the first and last possible days.
QList<QDate> DaysAroundEveryBranch() {
    QList<QDate> days{kFirstDay, QDate(100, 1, 2), QDate(100, 12, 31), QDate(101, 1, 1), QDate(1996, 2, 29)};
    for (int month = 1; month <= 12; ++month) {
        days.append({QDate(1998, month, 1), QDate(1998, month, 1).addMonths(1).addDays(-1)});
    }
    for (const int year : {1998, 1999, 2000}) {
        for (const auto& [month, day] :
             {std::pair{1, 2}, {2, 28}, {6, 9}, {6, 10}, {6, 11}, {7, 9}, {12, 30}}) {
            days.append(QDate(year, month, day));
        }
    }
    days.append({QDate(2000, 2, 29), QDate(1999, 1, 1), QDate(1999, 12, 31), QDate(2001, 1, 1),
                 QDate(9998, 12, 31), QDate(9999, 1, 1), QDate(9999, 11, 30), QDate(9999, 12, 1), kLastDay});
    return days;
}

/// The same search for the code under test and for the test's own implementation.
struct Question {
    SearchConditions conditions;
    days::Search search;
};

/// `bits`, from the lowest: three check boxes, search by name, search by dates.
Question Asked(unsigned bits, const QString& name, QDate start, QDate end) {
    const auto bit = [bits](unsigned place) { return ((bits >> place) & 1U) != 0; };
    Question question;
    question.search = {bit(0), bit(1), bit(2), bit(3), bit(4), name, start, end};
    question.conditions = {bit(0), bit(1), bit(2), {}, {}};
    if (bit(3)) {
        question.conditions.name = name;
    }
    if (bit(4)) {
        question.conditions.dates = SearchRange{start, end};
    }
    return question;
}

constexpr unsigned kAllBits = 1U << 5U;

void CompareTexts(const QString& name, QDate start, QDate end) {
    for (unsigned bits = 0; bits < kAllBits; ++bits) {
        const Question question = Asked(bits, name, start, end);
        const auto texts = SearchTexts(question.conditions);
        const auto expected = days::SearchQueries(question.search);
        for (std::size_t kind = 0; kind < texts.size(); ++kind) {
            QCOMPARE(texts[kind], expected[kind].text);
        }
    }
}

class Dice {
public:
    int From(int first, int last) { return m_generator.bounded(first, last + 1); }
    bool Once(int times) { return m_generator.bounded(times) == 0; }

    /// Mostly rows of the few years that are searched; some have values that no calendar has.
    days::Anniversary Row() {
        days::Anniversary row{u"n%1"_s.arg(From(0, 9)), Once(3) ? From(1995, 2002) : 0,
                              Once(4) ? 0 : From(1, 12), From(1, 31), 0};
        if (Once(3)) {
            row.week = 10 * From(1, 5) + From(1, 7);
            row.day = Once(10) ? row.day : 0;
        }
        if (Once(30)) {
            row = {Once(2) ? QString() : row.name, From(-1, 6), From(-1, 13), From(-1, 40), From(-1, 80)};
        }
        return row;
    }

    Question NextQuestion() {
        QDate start = QDate(From(1996, 2001), 1, 1).addDays(From(0, 364));
        QDate end = start.addDays(Once(2) ? From(0, 70) : From(0, 1000));
        if (Once(6)) {
            end = kLastDay;
        } else if (Once(6)) {
            start = kFirstDay;
        }
        const QString name = Once(8) ? QString() : u"n%1"_s.arg(From(0, 10));
        return Asked(m_generator.bounded(kAllBits), name, start, end);
    }

private:
    QRandomGenerator m_generator{kSeed};
};

QString YearText(std::size_t kind, const days::Anniversary& row) {
    return kind == 0 ? QString::number(row.year) : u"毎"_s;
}

QString MonthText(std::size_t kind, const days::Anniversary& row) {
    return kind == 2 ? u"毎"_s : QString::number(row.month);
}

QString WeekText(int week) {
    if (week == 0) {
        return {};
    }
    const QString digits = QString::number(week);
    const int last = digits.right(1).toInt();
    return u"第"_s + digits.left(1) + u"週" + u"土日月火水木金土日月"_s.at(last);
}

QList<days::DayListRow> Listed(const days::Anniversaries& stored, const days::Search& search) {
    QList<days::DayListRow> rows;
    const auto queries = days::SearchQueries(search);
    for (std::size_t kind = 0; kind < queries.size(); ++kind) {
        for (const days::Anniversary& row : days::Those(stored, queries[kind].isMeant)) {
            rows.append({row.name, YearText(kind, row), MonthText(kind, row),
                         row.day == 0 ? QString() : QString::number(row.day), WeekText(row.week)});
        }
    }
    return rows;
}

/// The names that a search finds, separated by spaces.
QString Found(store::DayDatabase& database, const SearchConditions& conditions) {
    QStringList names;
    for (const days::DayListRow& row : AllOf(FindAnniversaries(database, conditions).rows)) {
        names.append(row.name);
    }
    return names.join(u' ');
}

SearchConditions Within(QDate start, QDate end) {
    SearchConditions conditions;
    conditions.dates = SearchRange{start, end};
    return conditions;
}

}  // namespace

/// The search of the anniversary book.
class TstAnniversarySearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WritesTheTexts_data();
    void WritesTheTexts();
    void WritesTheTextsOfEveryCombination();
    void FindsAndListsTheMatchingRows();
    void RowsOfOneYearAreNeverFoundByDate();
    void OnlyRowsOfTheMonthsBetweenAreFound();
    void FromDecemberOnMonthlyRowsAreFilteredByDay();
    void UntilJanuaryMonthlyRowsAreFilteredByDay();
    void TheYearFiveIsFoundByEveryClearedBox();
    void ARowOfOneYearAndEveryMonthIsFoundTwice();
    void AQuoteInTheNameIsRefused();
    void AQuoteInTheNameIsAcceptedIfNothingIsSearched();
};

void TstAnniversarySearch::WritesTheTexts_data() {
    QTest::addColumn<SearchConditions>("conditions");
    QTest::addColumn<QStringList>("texts");

    const QString none = u"SELECT * FROM Kinenbi WHERE Year = 5"_s;
    QTest::newRow("all") << SearchConditions{}
                         << QStringList{u"SELECT * FROM Kinenbi WHERE Year <> 0"_s,
                                        u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"_s,
                                        u"SELECT * FROM Kinenbi WHERE Month = 0"_s};
    QTest::newRow("none") << SearchConditions{false, false, false, u"a"_s,
                                              SearchRange{QDate(1998, 1, 1), QDate(1998, 1, 2)}}
                          << QStringList{none, none, none};
    QTest::newRow("by an empty name")
        << SearchConditions{true, false, true, QString(), {}}
        << QStringList{u"SELECT * FROM Kinenbi WHERE Year <> 0 AND Name=\"\""_s, none,
                       u"SELECT * FROM Kinenbi WHERE Month = 0 AND Name=\"\""_s};
    QTest::newRow("within a year")
        << SearchConditions{true, true, true, u"例会"_s, SearchRange{QDate(1998, 10, 3), QDate(1998, 12, 31)}}
        << QStringList{
               u"SELECT * FROM Kinenbi WHERE Year <> 0 AND Name=\"例会\""
               u" AND ( ( Year=1998 AND Month=10 AND ( Day=0 OR Day >=3 ) AND ( Week=0 OR Week >= 17 ) )"
               u" OR ( Year=1998 AND Month > 10 ) )"
               u" AND ( ( Year=1998 AND Month < 12 )"
               u" OR ( Year=1998 AND Month=12 AND Day <=31 AND Week <= 55 ) )"
               u" AND Year BETWEEN 1999 AND 1997"_s,
               u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0 AND Name=\"例会\""
               u" AND ( ( Month > 10 AND Month < 12 )"
               u" OR ( ( Month=10 AND ( Day=0 OR Day >= 3 )  AND ( Week=0 OR Week >= 17 )"
               u" AND ( Month=12 AND Day <= 31 AND Week <= 55 ) ) ) )"_s,
               u"SELECT * FROM Kinenbi WHERE Month = 0 AND Name=\"例会\""_s};
    QTest::newRow("within a month, two years apart")
        << SearchConditions{true, true, true, {}, SearchRange{QDate(1998, 6, 10), QDate(2000, 6, 1)}}
        << QStringList{
               u"SELECT * FROM Kinenbi WHERE Year <> 0"
               u" AND ( ( Year=1998 AND Month=6 AND ( Day=0 OR Day >=10 ) AND ( Week=0 OR Week >= 24 ) )"
               u" OR ( Year=1998 AND Month > 6 ) )"
               u" AND ( ( Year=2000 AND Month < 6 )"
               u" OR ( Year=2000 AND Month=6 AND Day <=1 AND Week <= 15 ) )"_s,
               u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"_s,
               u"SELECT * FROM Kinenbi WHERE Month = 0"
               u" AND ( ( Day=0 OR Day >= 10 ) AND ( Week=0 OR Week >= 24 ) )"
               u" AND ( Day <= 1 AND Week <= 15 )"_s};
}

void TstAnniversarySearch::WritesTheTexts() {
    QFETCH(SearchConditions, conditions);
    QFETCH(QStringList, texts);
    const auto written = SearchTexts(conditions);
    QCOMPARE(QStringList(written.begin(), written.end()), texts);
}

void TstAnniversarySearch::WritesTheTextsOfEveryCombination() {
    const QList<QDate> days = DaysAroundEveryBranch();
    for (const QDate& first : days) {
        for (const QDate& last : days) {
            if (first <= last) {
                CompareTexts(u"例会"_s, first, last);
            }
        }
        for (const RangeKind kind : {RangeKind::After, RangeKind::Before}) {
            const SearchRange range = RangeOf(kind, first, first);
            CompareTexts(u"x\"y"_s, range.start, range.end);
        }
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void TstAnniversarySearch::FindsAndListsTheMatchingRows() {
    qInfo("seed %u", kSeed);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    Dice dice;
    days::Anniversaries stored;
    {
        store::DayTransaction transaction(database);
        for (int i = 0; i < kRows; ++i) {
            stored.push_back(dice.Row());
            database.Execute(InsertSql(stored.back()));
        }
        transaction.Commit();
    }
    const auto searched =
        days::Those(stored, [](const days::Anniversary& row) { return row.year != 5; }).size();
    QVERIFY(searched < stored.size());
    qsizetype found = 0;
    for (int i = 0; i < kSearches; ++i) {
        const Question question = dice.NextQuestion();
        const SearchFinds finds = FindAnniversaries(database, question.conditions);
        QVERIFY2(AllOf(finds.rows) == Listed(stored, question.search),
                 qPrintable(SearchTexts(question.conditions).at(0)));
        QCOMPARE(finds.searched, static_cast<int>(searched));
        found += finds.rows.Count();
    }
    QVERIFY(found > qsizetype{10} * kSearches);
}

void TstAnniversarySearch::RowsOfOneYearAreNeverFoundByDate() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(InsertSql({u"a"_s, 1998, 10, 3, 0}));
    QCOMPARE(Found(database, {}), u"a"_s);
    for (const QDate end : {QDate(1998, 10, 3), QDate(1998, 12, 31), QDate(1999, 10, 3), QDate(2005, 1, 1)}) {
        QCOMPARE(Found(database, Within(QDate(1998, 1, 1), end)), QString());
    }
}

void TstAnniversarySearch::OnlyRowsOfTheMonthsBetweenAreFound() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (int month = 1; month <= 12; ++month) {
        database.Execute(InsertSql({u"%1"_s.arg(month), 0, month, 15, 0}));
    }
    QCOMPARE(Found(database, Within(QDate(1998, 3, 1), QDate(1998, 6, 30))), u"4 5"_s);
    QCOMPARE(Found(database, Within(QDate(1998, 6, 1), QDate(1998, 6, 30))), u"6"_s);
    QCOMPARE(Found(database, Within(QDate(1998, 11, 1), QDate(1999, 2, 28))), QString());
}

void TstAnniversarySearch::FromDecemberOnMonthlyRowsAreFilteredByDay() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (const days::Anniversary& row :
         {days::Anniversary{u"9"_s, 0, 0, 9, 0}, days::Anniversary{u"10"_s, 0, 0, 10, 0},
          days::Anniversary{u"fifth"_s, 0, 0, 0, 57}, days::Anniversary{u"fourth"_s, 0, 0, 0, 47}}) {
        database.Execute(InsertSql(row));
    }
    const auto after = [](QDate start) {
        SearchConditions conditions;
        conditions.dates = RangeOf(RangeKind::After, start, start);
        return conditions;
    };
    QCOMPARE(Found(database, after(QDate(1998, 12, 10))), u"10 fourth"_s);
    QCOMPARE(Found(database, after(QDate(1998, 11, 10))), u"9 10 fifth fourth"_s);
}

void TstAnniversarySearch::UntilJanuaryMonthlyRowsAreFilteredByDay() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (const days::Anniversary& row :
         {days::Anniversary{u"9"_s, 0, 0, 9, 0}, days::Anniversary{u"10"_s, 0, 0, 10, 0},
          days::Anniversary{u"15"_s, 0, 0, 0, 15}, days::Anniversary{u"16"_s, 0, 0, 0, 16}}) {
        database.Execute(InsertSql(row));
    }
    const auto before = [](QDate end) {
        SearchConditions conditions;
        conditions.dates = RangeOf(RangeKind::Before, end, end);
        return conditions;
    };
    QCOMPARE(Found(database, before(QDate(1998, 1, 9))), u"9 16"_s);
    QCOMPARE(Found(database, before(QDate(1998, 3, 9))), u"9 10 15 16"_s);
}

void TstAnniversarySearch::TheYearFiveIsFoundByEveryClearedBox() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(InsertSql({u"five"_s, 5, 1, 1, 0}));
    database.Execute(InsertSql({u"other"_s, 0, 1, 1, 0}));
    const SearchFinds finds = FindAnniversaries(database, {false, false, false, {}, {}});
    const QList<days::DayListRow> expected{{u"five"_s, u"5"_s, u"1"_s, u"1"_s, QString()},
                                           {u"five"_s, u"毎"_s, u"1"_s, u"1"_s, QString()},
                                           {u"five"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}};
    QVERIFY(AllOf(finds.rows) == expected);
    QCOMPARE(finds.searched, 1);
}

void TstAnniversarySearch::ARowOfOneYearAndEveryMonthIsFoundTwice() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(InsertSql({u"a"_s, 1998, 0, 1, 0}));
    const SearchFinds finds = FindAnniversaries(database, {});
    const QList<days::DayListRow> expected{{u"a"_s, u"1998"_s, u"0"_s, u"1"_s, QString()},
                                           {u"a"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}};
    QVERIFY(AllOf(finds.rows) == expected);
    QCOMPARE(finds.searched, 1);
}

void TstAnniversarySearch::AQuoteInTheNameIsRefused() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (const QString& name : {u"x\"y"_s, u"x\" OR \"1\"=\"1"_s}) {
        QVERIFY_THROWS_EXCEPTION(RunTimeError, FindAnniversaries(database, {false, false, true, name, {}}));
    }
}

void TstAnniversarySearch::AQuoteInTheNameIsAcceptedIfNothingIsSearched() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    QVERIFY(FindAnniversaries(database, {false, false, false, u"x\"y"_s, {}}).rows.Kept().isEmpty());
}

QTEST_GUILESS_MAIN(TstAnniversarySearch)
#include "tst_anniversary_search.moc"
