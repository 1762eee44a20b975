// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "book/anniversary_search.h"

namespace tickwell::book {

/// The kind of date range; the values are the indexes of the search window's option buttons.
enum class RangeKind { FromTo = 0, After = 1, Before = 2 };

/// A date as typed.
struct DateFields {
    QString year;
    QString month;
    QString day;
};

/// The contents of the search window's fields, without a window.
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

/// Which fields are enabled.
struct SearchEnabling {
    bool name = false;
    bool range = false;
    bool start = false;
    bool end = false;

    bool operator==(const SearchEnabling&) const = default;
};

SearchEnabling EnablingOf(bool byName, bool byDate, RangeKind range);

/// The date with this year, month and day; numbers out of range are carried over: 31 February is in March,
/// day 0 is the last day of the previous month. `year` and the year of the result are 100 to 9999. Throws
/// RunTimeError.
QDate RolledDate(qint32 year, qint32 month, qint32 day);

/// With After the range ends on 31 December 9999; with Before it begins on 1 January 100.
SearchRange RangeOf(RangeKind kind, QDate start, QDate end);

/// The search criteria in the fields; nullopt if the range ends before it begins. Both dates are parsed and
/// compared even if the search ignores one or both of them. Throws RunTimeError.
std::optional<SearchConditions> ConditionsOf(const SearchFields& fields);

}  // namespace tickwell::book
