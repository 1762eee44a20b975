// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <array>

// The new moons and solar longitudes of the years 1900 to 2100, as dates in Japan (UTC + 9 h). Computed by
// tools/make_old_calendar; only old_calendar and solar_terms read it.

namespace tickwell {

inline constexpr int kFirstTableYear = 1900;
inline constexpr int kLastTableYear = 2100;
inline constexpr int kTableYears = kLastTableYear - kFirstTableYear + 1;

/// False also for an invalid day.
inline bool IsInTable(QDate day) {
    return day.isValid() && day.year() >= kFirstTableYear && day.year() <= kLastTableYear;
}

/// The months of the old year that begins in year 1899 + index:
///     bits 0..4   days from 20 January to the first day of its first month
///     bits 5..8   the number of its leap month, which follows the month with the same number; 0 without one
///     bits 9..21  for each of its months in order, the leap month included: 1 if it has 30 days, 0 if 29
extern const std::array<quint32, kTableYears + 1> kOldYears;

/// A month, and a day of it, without a year.
struct DayOfYear {
    qint8 month;
    qint8 day;
};

/// The solar longitudes in the table: the 24 terms from 小寒 (285°, in January) on at 15° each, then 297°,
/// 27°, 80°, 100°, 117° and 207°.
inline constexpr int kSolarLongitudes = 30;

/// The earliest day on which the sun reaches each longitude in any of these years.
extern const std::array<DayOfYear, kSolarLongitudes> kEarliestSolarDays;

/// For year 1900 + index: bits 2n and 2n + 1 count the days from the earliest day of longitude n to the day
/// on which the sun reaches it.
extern const std::array<quint64, kTableYears> kSolarDays;

}  // namespace tickwell
