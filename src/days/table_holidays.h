// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/holiday_source.h"
#include "store/day_database.h"

namespace tickwell::days {

/// The rows of the table Syukuzitu: the same days in every year.
class TableHolidays : public HolidaySource {
public:
    /// `database` outlives this object.
    explicit TableHolidays(store::DayDatabase& database) : m_database(database) {}

    QList<NamedDay> DaysOff(const MonthShape& month) const override;

    /// The names of at most kMostAnnounced rows; substitutes are not announced.
    QStringList NamesOn(QDate day) const override;

    /// A red weekday is stored, so that it stays red if the holiday is deleted from the table.
    bool IsStoredWithMarks() const override { return true; }

private:
    store::DayDatabase& m_database;
};

/// The rows as days off, in their order: the day after a holiday on a Sunday is its substitute, whatever that
/// day is. Rows that are outside of the grid are skipped.
QList<NamedDay> WithSubstitutes(const MonthShape& month, const QList<NamedDay>& rows);

}  // namespace tickwell::days
