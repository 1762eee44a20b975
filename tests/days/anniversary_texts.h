// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "days/day_rule.h"
#include "store/day_database.h"

namespace tickwell::days {

/// The names of a result's rows, separated by spaces.
inline QString Names(const store::ResultSet& rows) {
    QStringList names;
    for (const store::ResultRow& row : rows) {
        names.append(row.Text(u"Name"));
    }
    return names.join(u' ');
}

/// A statement that stores an anniversary.
inline QString Insert(const QString& name, int year, int month, int day, int week) {
    return QStringLiteral("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"%1\",%2,%3,%4,%5)")
        .arg(name)
        .arg(year)
        .arg(month)
        .arg(day)
        .arg(week);
}

/// The names of the anniversaries that fall on a day.
inline QString AnniversariesOf(store::DayDatabase& database, QDate date) {
    return Names(database.RunQuery(AnniversaryQuery(date.year(), date.month(), date.day(), WeekCode(date))));
}

}  // namespace tickwell::days
