// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <array>

#include "days/day_rule.h"
#include "days/holiday_source.h"
#include "days/month_shape.h"
#include "store/day_database.h"

namespace tickwell::days {

/// The holidays and the user's marks of a month.
struct MonthRows {
    QList<NamedDay> holidays;                        ///< see HolidaySource::DaysOff
    std::array<QList<int>, kDayMarks.size()> marks;  ///< days of the month, by DayMark
    bool areHolidaysStored = true;                   ///< see HolidaySource::IsStoredWithMarks
};

/// Skips marks that are not dates, such as February 30. Throws SqlError.
MonthRows ReadMonth(store::DayDatabase& database, const HolidaySource& holidays, const MonthShape& month);

}  // namespace tickwell::days
