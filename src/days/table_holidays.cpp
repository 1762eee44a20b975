// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/table_holidays.h"

#include "days/announced_names.h"
#include "days/day_rule.h"
#include "days/month_grid.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

QList<NamedDay> WithSubstitutes(const MonthShape& month, const QList<NamedDay>& rows) {
    QList<NamedDay> days;
    for (const NamedDay& row : rows) {
        const qint64 cell = static_cast<qint64>(row.day) + month.CellOf(0);
        if (cell < kFirstDayCell || cell >= kGridCells) {
            continue;  // not a day of any month
        }
        if (IsSundayCell(static_cast<int>(cell))) {
            days.append({row.day + 1, u"振替休日"_s});
        }
        days.append(row);
    }
    return days;
}

QList<NamedDay> TableHolidays::DaysOff(const MonthShape& month) const {
    QList<NamedDay> rows;
    for (const store::ResultRow& row : m_database.RunQuery(MonthHolidayQuery(month.first.month()))) {
        rows.append({row.Integer(u"Day"), row.Text(u"Name")});
    }
    return WithSubstitutes(month, rows);
}

QStringList TableHolidays::NamesOn(QDate day) const {
    QStringList names;
    const QString query = HolidayQuery(day.month(), day.day());
    for (const store::ResultRow& row : m_database.RunQueryForFirst(kMostAnnounced, query)) {
        names.append(row.Text(u"Name"));
    }
    return names;
}

}  // namespace tickwell::days
