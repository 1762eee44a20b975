// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <optional>

#include "days/month_shape.h"
#include "store/day_database.h"
#include "store/row_search.h"

namespace tickwell::days {

/// Finds the days of a month on which an anniversary falls, in slices of a few milliseconds.
class AnniversaryDays {
public:
    /// `database` outlives this object.
    AnniversaryDays(store::DayDatabase& database, const MonthShape& month);

    /// Searches the next days; true once all days have been searched. Rows that change between two slices may
    /// be missed. Throws SqlError.
    bool Step();

    /// The days found so far, 1 to 31, ascending.
    const QList<int>& Days() const { return m_days; }

private:
    bool SearchDay();

    store::DayDatabase* m_database;
    MonthShape m_month;
    int m_day = 1;                             // being searched
    std::optional<store::RowSearch> m_search;  // of that day; nullopt before its first slice
    QList<int> m_days;
};

}  // namespace tickwell::days
