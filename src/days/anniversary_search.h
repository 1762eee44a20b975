// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <array>
#include <optional>

#include "days/day_database.h"
#include "days/day_list_row.h"

namespace tickwell {

/// From when to when; the numbers are those of the search window's option buttons.
enum class RangeKind { FromTo = 0, After = 1, Before = 2 };

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

/// The date that the numbers come to, a month or a day that is too much or too little rolled on: day 31 of a
/// February is in March, day 0 is the last day of the month before. `year` and the year of the date are 100
/// to 9999. Throws RunTimeError.
QDate RolledDate(qint32 year, qint32 month, qint32 day);

/// With "After" the range ends on 31 December 9999, with "Before" it begins on 1 January 100.
SearchRange RangeOf(RangeKind kind, QDate start, QDate end);

/// The three questions: for anniversaries of one year, of every year, of every month. A box that is not
/// ticked asks for the year 5, in which no anniversary is expected. Which rows the conditions on the date
/// find is kept as it always was: none of one year; between two months of a year only those in between; and
/// with months that run into the next, day by day as if it were one month.
std::array<QString, 3> SearchTexts(const SearchConditions& conditions);

/// Asks the three questions and counts all anniversaries but those of the year 5. Rows come in the order of
/// the questions, and twice where two of them found one. Throws RunTimeError.
SearchFinds FindAnniversaries(DayDatabase& database, const SearchConditions& conditions);

}  // namespace tickwell
