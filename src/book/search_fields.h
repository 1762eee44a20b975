// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "book/anniversary_search.h"

namespace tickwell {

/// From when to when; the numbers are those of the search window's option buttons.
enum class RangeKind { FromTo = 0, After = 1, Before = 2 };

/// A date as it is typed.
struct DateFields {
    QString year;
    QString month;
    QString day;
};

/// What stands in the fields of the search window, without a window.
struct SearchFields {
    bool oneDay = true;
    bool everyYear = true;
    bool everyMonth = true;
    bool byName = false;
    QString name;
    bool byDate = false;
    RangeKind range = RangeKind::FromTo;
    DateFields start;
    DateFields end;
};

/// Which fields can be filled in.
struct SearchEnabling {
    bool name = false;
    bool range = false;
    bool start = false;
    bool end = false;

    bool operator==(const SearchEnabling&) const = default;
};

SearchEnabling EnablingOf(bool byName, bool byDate, RangeKind range);

/// The date that the numbers come to, a month or a day that is too much or too little rolled on: day 31 of a
/// February is in March, day 0 is the last day of the month before. `year` and the year of the date are 100
/// to 9999. Throws RunTimeError.
QDate RolledDate(qint32 year, qint32 month, qint32 day);

/// With After the range ends on 31 December 9999, with Before it begins on 1 January 100.
SearchRange RangeOf(RangeKind kind, QDate start, QDate end);

/// What the fields ask for; nothing when the range ends before it begins. Both dates are read, and compared,
/// also where they are no condition or only one of them counts. Throws RunTimeError.
std::optional<SearchConditions> ConditionsOf(const SearchFields& fields);

}  // namespace tickwell
