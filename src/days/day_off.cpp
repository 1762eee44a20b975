// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_off.h"

#include <algorithm>

#include "days/month_rows.h"

namespace tickwell::days {

bool IsDayOff(store::DayDatabase& database, const HolidaySource& holidays, QDate day) {
    const MonthRows rows = ReadMonth(database, holidays, ShapeOf(day));
    bool isOff = std::any_of(rows.holidays.begin(), rows.holidays.end(),
                             [day](const NamedDay& holiday) { return holiday.day == day.day(); });
    for (const DayMark mark : kDayMarks) {  // the later overrides the earlier, as in the calendar
        if (rows.marks.at(static_cast<std::size_t>(mark)).contains(day.day())) {
            isOff = mark == DayMark::Holiday;
        }
    }
    return isOff;
}

}  // namespace tickwell::days
