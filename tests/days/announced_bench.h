// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/announced_names.h"
#include "days/table_holidays.h"

namespace tickwell::days {

/// The names announced on a day, by default with the default settings.
inline QStringList AnnouncedNames(store::DayDatabase& database, QDate day,
                                  const Corrections& corrections = {}) {
    const TableHolidays holidays(database);
    FurtherSettings further;
    further.corrections = corrections;
    return AnnouncedNames({.dayDatabase = database, .holidays = holidays, .further = further}, day);
}

}  // namespace tickwell::days
