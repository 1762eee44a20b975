// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

#include "exchange/calendar_event.h"

namespace tickwell::exchange {

/// The rows that fall on exactly the days of an event, or why there are none. Names are not filled in.
struct EventRows {
    std::vector<days::Anniversary> rows;  ///< empty if it was refused
    QString reason;                       ///< such as 「隔年の予定」; empty if it was not refused
};

/// Never approximates: what a row cannot say is refused. Only occurrences that were left out before `today`
/// do not count. `replaced`: occurrences that other events replace on another day.
EventRows RowsOf(const CalendarEvent& event, QDate today, const QList<QDate>& replaced = {});

/// For a refused event: a row for each day on which it falls within the year from `today` on. None if there
/// is no such day, or if they could not be computed.
std::vector<days::Anniversary> SingleRowsOf(const CalendarEvent& event, QDate today,
                                            const QList<QDate>& replaced = {});

/// The end of that year: the day after its last one.
QDate EndOfYearFrom(QDate today);

/// The rows without a year that fall on the days of a rule without an end, or why there are none. `start`:
/// the day that counts if the rule names none.
EventRows EndlessRowsOf(const Recurrence& rule, QDate start);

}  // namespace tickwell::exchange
