// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <array>
#include <optional>
#include <vector>

#include "core/sliced_work.h"
#include "days/listed_rows.h"
#include "store/row_search.h"

namespace tickwell::book {

/// The first and last day of the search.
struct SearchRange {
    QDate start;
    QDate end;
};

/// The criteria of a search in the anniversary book.
struct SearchConditions {
    bool oneDay = true;                ///< include those of one year
    bool everyYear = true;             ///< include those of every year
    bool everyMonth = true;            ///< include those of every month
    std::optional<QString> name;       ///< the complete name; empty: any
    std::optional<SearchRange> dates;  ///< empty: any; start is not after end
    bool acrossMonths = false;         ///< a date range finds all yearly anniversaries that fall within it
};

/// The result of a search: rows for the list, and the number of anniversaries searched.
struct SearchFinds {
    days::ListedRows rows;
    int searched = 0;
};

/// The three queries: for anniversaries of one year, of every year, and of every month. The query of an
/// unticked box selects the year 5, in which no anniversary is expected. The date conditions intentionally
/// keep the behaviour that users know: they find no anniversary of one year; in a range over several months,
/// only the yearly ones of the months strictly in between; and in a range into the next month, the days are
/// compared as if both were in one month. With `acrossMonths` the yearly ones are those that fall on a day of
/// the range (YearlyCondition).
std::array<QString, 3> SearchTexts(const SearchConditions& conditions);

/// Runs the three queries and counts all anniversaries except those of the year 5, in slices. Rows are
/// returned in the order of the queries, and twice if two queries found them.
class AnniversarySearch : public SlicedWork {
public:
    /// `database` outlives the search and the rows that it finds. Throws SqlError if the conditions do not
    /// form a valid statement.
    AnniversarySearch(store::DayDatabase& database, const SearchConditions& conditions);

    bool Step() override;
    double Part() const override;

    /// To be called after the last slice. Throws RunTimeError.
    SearchFinds TakeFinds();

private:
    void Begin();

    store::DayDatabase& m_database;
    std::array<QString, 3> m_texts;
    std::vector<store::RowSearch> m_searches;  // the three queries and the count
    std::size_t m_current = 0;
    std::optional<store::ChangeMark> m_mark;
};

}  // namespace tickwell::book
