// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "days/holiday_source.h"
#include "store/day_database.h"

namespace tickwell::days {

/// Whether a day is off for the user: the user's mark decides, otherwise whether it is a national holiday or
/// a substitute. A half-day is not off. The weekday makes no difference. Throws RunTimeError.
bool IsDayOff(store::DayDatabase& database, const HolidaySource& holidays, QDate day);

}  // namespace tickwell::days
