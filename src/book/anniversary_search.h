// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <array>
#include <optional>

#include "days/day_list_row.h"
#include "store/day_database.h"

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
    QList<DayListRow> rows;
    int searched = 0;
};

/// The three questions: for anniversaries of one year, of every year, of every month. A box that is not
/// ticked asks for the year 5, in which no anniversary is expected. Which rows the conditions on the date
/// find is kept as it always was: none of one year; between two months of a year only those in between; and
/// with months that run into the next, day by day as if it were one month.
std::array<QString, 3> SearchTexts(const SearchConditions& conditions);

/// Asks the three questions and counts all anniversaries but those of the year 5. Rows come in the order of
/// the questions, and twice where two of them found one. Throws RunTimeError.
SearchFinds FindAnniversaries(DayDatabase& database, const SearchConditions& conditions);

}  // namespace tickwell
