// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <array>

#include "days/day_rule.h"
#include "store/day_database.h"

namespace tickwell {

/// Where the days of a month stand in the calendar's grid.
struct MonthShape {
    QDate first;
    QDate last;
    int firstWeekday = 1;  ///< 1 Sunday to 7 Saturday

    int Days() const { return last.day(); }

    /// The cell of a day 1 to 31: the first week is row 1.
    int CellOf(int day) const { return day + firstWeekday + 5; }
};

/// The month that `date` lies in.
MonthShape ShapeOf(QDate date);

/// A row of the national holidays. The day is what someone stored, and may be none of the month.
struct NamedDay {
    qint32 day = 0;
    QString name;
};

/// What the day database says of a month, in stored order.
struct MonthRows {
    QList<NamedDay> holidays;
    std::array<QList<int>, kDayMarks.size()> marks;  ///< days of the month, by DayMark
};

/// A mark that is no date, such as February 30, falls on no day. Throws SqlError.
MonthRows ReadMonth(DayDatabase& database, const MonthShape& month);

}  // namespace tickwell
