// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/announced_names.h"
#include "days/table_holidays.h"

namespace tickwell::days {

/// The names announced on a day with the default settings.
inline QStringList AnnouncedNames(store::DayDatabase& database, QDate day) {
    const TableHolidays holidays(database);
    const FurtherSettings further;
    return AnnouncedNames({.dayDatabase = database, .holidays = holidays, .further = further}, day);
}

}  // namespace tickwell::days
