// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

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

/// A day off of a month. If it comes from the database, the day may not exist in the month.
struct NamedDay {
    qint32 day = 0;
    QString name;

    bool operator==(const NamedDay&) const = default;
};

}  // namespace tickwell::days
