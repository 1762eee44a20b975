// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QStringList>

#include "store/day_database.h"

namespace tickwell {

/// The week code that the main window's daily check looks for: 10 * weekday + week of the month, the digits
/// of WeekCode exchanged. So an anniversary of the Monday of week 3, code 32, is announced on the Tuesday of
/// week 2, and one whose weekday is a Friday or a Saturday never is; where both digits are equal it is
/// announced on its own day. Kept so on purpose: users have got used to it.
int AnnouncedWeekCode(QDate day);

/// A day has time to show 8640 names, for ten seconds each; those after them are not even read.
inline constexpr int kMostAnnounced = 10'000;

/// The names that the main window announces on `day`: of its anniversaries, then of its national holidays,
/// each in the order in which they were stored, and of each kind the first kMostAnnounced. Throws SqlError.
QStringList AnnouncedNames(DayDatabase& database, QDate day);

}  // namespace tickwell
