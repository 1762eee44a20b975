// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <array>

#include "days/day_rule.h"
#include "store/day_database.h"

namespace tickwell::days {

/// The position of a month's days in the calendar's grid.
struct MonthShape {
    QDate first;
    QDate last;
    int firstWeekday = 1;  ///< 1 Sunday to 7 Saturday

    int Days() const { return last.day(); }

    /// The cell of day 1 to 31: the first week is row 1.
    int CellOf(int day) const { return day + firstWeekday + 5; }
};

/// The month that contains `date`.
MonthShape ShapeOf(QDate date);

/// A row of the national holidays. The day is as stored, and may not exist in the month.
struct NamedDay {
    qint32 day = 0;
    QString name;
};

/// The day database's entries for a month, in the order of insertion.
struct MonthRows {
    QList<NamedDay> holidays;
    std::array<QList<int>, kDayMarks.size()> marks;  ///< days of the month, by DayMark
};

/// Skips marks that are not dates, such as February 30. Throws SqlError.
MonthRows ReadMonth(store::DayDatabase& database, const MonthShape& month);

}  // namespace tickwell::days
