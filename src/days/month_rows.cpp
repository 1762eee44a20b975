// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_rows.h"

#include "core/weekday.h"

namespace tickwell::days {

MonthShape ShapeOf(QDate date) {
    const QDate first(date.year(), date.month(), 1);
    return {.first = first, .last = first.addMonths(1).addDays(-1), .firstWeekday = WeekdayOf(first)};
}

MonthRows ReadMonth(store::DayDatabase& database, const HolidaySource& holidays, const MonthShape& month) {
    MonthRows rows{
        .holidays = holidays.DaysOff(month), .marks = {}, .areHolidaysStored = holidays.IsStoredWithMarks()};
    for (const DayMark mark : kDayMarks) {
        QList<int>& days = rows.marks.at(static_cast<std::size_t>(mark));
        for (const store::ResultRow& row :
             database.RunQuery(MarkedDatesQuery(mark, month.first, month.last))) {
            if (const QDate date = row.Date(u"Date"); date.isValid()) {
                days.append(date.day());
            }
        }
    }
    return rows;
}

}  // namespace tickwell::days
