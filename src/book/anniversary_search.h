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

namespace tickwell {

/// The first and the last day that are asked for.
struct SearchRange {
    QDate start;
    QDate end;
};

/// What is asked of the anniversary book.
struct SearchConditions {
    bool oneDay = true;                ///< with those of one year
    bool everyYear = true;             ///< with those of every year
    bool everyMonth = true;            ///< with those of every month
    std::optional<QString> name;       ///< whole; nothing: any
    std::optional<SearchRange> dates;  ///< nothing: any; start is not after end
};

/// An answer of the search: rows for the list, and among how many anniversaries they were looked for.
struct SearchFinds {
    ListedRows rows;
    int searched = 0;
};

/// The three questions: for anniversaries of one year, of every year, of every month. A box that is not
/// ticked asks for the year 5, in which no anniversary is expected. Which rows the conditions on the date
/// find is kept as it always was: none of one year; between two months of a year only those in between; and
/// with months that run into the next, day by day as if it were one month.
std::array<QString, 3> SearchTexts(const SearchConditions& conditions);

/// Asks the three questions and counts all anniversaries but those of the year 5, in slices. Rows come in the
/// order of the questions, and twice if two of them found one.
class AnniversarySearch : public SlicedWork {
public:
    /// Throws SqlError if the conditions make no statement.
    AnniversarySearch(DayDatabaseAccess database, const SearchConditions& conditions);

    bool Step() override;
    double Part() const override;

    /// Once the last slice is done. Throws RunTimeError.
    SearchFinds TakeFinds();

private:
    void Begin();

    DayDatabaseAccess m_database;
    std::array<QString, 3> m_texts;
    std::vector<RowSearch> m_searches;  // the three questions and the count
    std::size_t m_current = 0;
    std::optional<ChangeMark> m_mark;
};

}  // namespace tickwell
