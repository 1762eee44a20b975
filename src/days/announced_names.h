// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QStringList>

#include "core/settings.h"
#include "days/holiday_source.h"
#include "store/day_database.h"

namespace tickwell::days {

/// The week code that the main window's daily check uses: 10 * weekday + week of the month, that is, WeekCode
/// with its digits swapped. So an anniversary of the third Monday, code 32, is announced on the second
/// Tuesday, and one on a Friday or Saturday is never announced; one whose two digits are equal is announced
/// on its own day. Intentional: users are accustomed to it.
int AnnouncedWeekCode(QDate day);

/// A day has time to show 8640 names, for ten seconds each; names beyond this number are not even read.
inline constexpr int kMostAnnounced = 10'000;

/// What the announced names depend on; all outlive it.
struct AnnouncementParts {
    store::DayDatabase& dayDatabase;
    const HolidaySource& holidays;
    const FurtherSettings& further;
};

/// The names that the main window announces on `day`: those of its anniversaries, in the order of insertion
/// and at most kMostAnnounced, then those of the day off, then, if the settings select them, the date in the
/// old calendar (「旧暦10月14日 大安」) and the solar term or seasonal day (「小雪」). Throws SqlError.
QStringList AnnouncedNames(const AnnouncementParts& parts, QDate day);

/// The same, but without the date in the old calendar, which every day has: what a notice of the day tells.
/// Throws SqlError.
QStringList NamesToTell(const AnnouncementParts& parts, QDate day);

}  // namespace tickwell::days
