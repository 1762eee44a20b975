// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "days/anniversary_model.h"
#include "days/day_rule.h"
#include "days/search_texts.h"
#include "store/day_database.h"
#include "store/day_store.h"
#include "store/day_transaction.h"
#include "store/sql_error.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr quint32 kSeed = 0x10C7;
constexpr int kLookups = 100'000;
constexpr int kSearches = 4'000;  // three queries each
constexpr int kRows = 300;

/// Draws years, months and days from a small range, so that many rows match.
class Dice {
public:
    explicit Dice(quint32 seed) : m_generator(seed) {}

    int From(int first, int last) { return m_generator.bounded(first, last + 1); }
    bool Once(int times) { return m_generator.bounded(times) == 0; }

    QDate Date() { return QDate(From(1996, 2001), 1, 1).addDays(From(0, 364)); }

    Anniversary Row() {
        Anniversary row{u"n%1"_s.arg(From(0, 9)), Once(3) ? From(1995, 2002) : 0, Once(4) ? 0 : From(1, 12),
                        0, 0};
        if (!Once(10)) {
            (Once(2) ? row.week : row.day) = Once(2) ? From(1, 31) : 10 * From(1, 5) + From(1, 7);
        }
        if (Once(10)) {
            row.day = From(1, 31);
        }
        if (Once(50)) {
            row = {row.name, From(-3, 6), From(-1, 13), From(-1, 40), From(-1, 80)};
        }
        return row;
    }

    Search NextSearch() {
        Search search{!Once(4), !Once(4), !Once(4),
                      Once(3),  !Once(4), Once(8) ? u"Month = 0"_s : u"n%1"_s.arg(From(0, 10)),
                      Date(),   Date()};
        if (search.end < search.start) {
            std::swap(search.start, search.end);
        }
        if (Once(2)) {
            search.end = std::min(search.end, search.start.addDays(From(0, 70)));
        }
        if (Once(6)) {
            search.end = QDate(9999, 12, 31);
        } else if (Once(6)) {
            search.start = QDate(100, 1, 1);
        }
        return search;
    }

private:
    QRandomGenerator m_generator;
};

Anniversaries Filled(store::DayDatabase& database, Dice& dice) {
    Anniversaries rows;
    store::DayTransaction transaction(database);
    for (int i = 0; i < kRows; ++i) {
        rows.push_back(dice.Row());
        database.Execute(InsertText(rows.back()));
    }
    transaction.Commit();
    return rows;
}

}  // namespace

/// Random queries, compared with results that the test computes itself.
class TstDayLookups : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FindsADaysAnniversaries();
    void FindsWhatIsSearched();
};

void TstDayLookups::FindsADaysAnniversaries() {
    qInfo("seed %u", kSeed);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    Dice dice(kSeed);
    const Anniversaries rows = Filled(database, dice);
    std::size_t found = 0;
    for (int i = 0; i < kLookups; ++i) {
        const QDate date = dice.Date();
        const int code = dice.Once(2) ? WeekCode(date) : WeekCode(date) % 10 * 10 + WeekCode(date) / 10;
        const auto falls = [&](const Anniversary& row) {
            const bool onTheDay = row.day == date.day() || row.week == code;
            const bool inTheMonth = row.month == 0 || row.month == date.month();
            return onTheDay && inTheMonth && (row.year == 0 || row.year == date.year());
        };
        const Anniversaries expected = Those(rows, falls);
        const QString sql = AnniversaryQuery(date.year(), date.month(), date.day(), code);
        QVERIFY2(AnniversariesIn(database.RunQuery(sql)) == expected, qPrintable(sql));
        found += expected.size();
    }
    QVERIFY(found > kLookups);
}

void TstDayLookups::FindsWhatIsSearched() {
    qInfo("seed %u", kSeed + 1);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    Dice dice(kSeed + 1);
    const Anniversaries rows = Filled(database, dice);
    std::array<std::size_t, 3> found{};
    for (int i = 0; i < kSearches; ++i) {
        const auto queries = SearchQueries(dice.NextSearch());
        for (std::size_t kind = 0; kind < queries.size(); ++kind) {
            const Anniversaries expected = Those(rows, queries[kind].isMeant);
            const QString& sql = queries[kind].text;
            QVERIFY2(AnniversariesIn(database.RunQuery(sql)) == expected, qPrintable(sql));
            found[kind] += expected.size();
        }
    }
    for (const std::size_t count : found) {
        QVERIFY(count > kSearches);
    }
}

QTEST_GUILESS_MAIN(TstDayLookups)
#include "tst_day_lookups.moc"
