// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QMap>
#include <QString>

#include "core/holiday_list.h"
#include "days/anniversary_index.h"

namespace tickwell::days {

/// Days, both ends included.
struct DayRange {
    QDate first;
    QDate last;

    bool Contains(QDate day) const { return first <= day && day <= last; }

    bool operator==(const DayRange&) const = default;
};

/// The days for which every column of a line is known: 1900-01-01 to 2100-12-31.
DayRange LinedDays();

/// Days as lines for other programs: seven columns separated by tabs. A column contains no tab and no line
/// break, and may be empty.
///
///     2026-05-06   the date
///     水           the weekday
///     振替休日     the name of the day off, by law and official list
///     2026-03-20   the date in the old calendar; in a leap month 2025-06+-01
///     仏滅         the day of the six-day week
///     立夏         the solar term or seasonal day
///     結婚記念日／給料日    the anniversaries, in the order of insertion
class DayLines {
public:
    /// `list`: the official list; null if there is none. It outlives this object.
    DayLines(AnniversaryIndex anniversaries, const HolidayList* list)
        : m_anniversaries(std::move(anniversaries)), m_list(list) {}

    /// The line of a day in LinedDays, without a line feed. Days of the same year should be requested one
    /// after the other: the days off of only one year are kept.
    QString LineOf(QDate day);

private:
    QString DayOff(QDate day);

    AnniversaryIndex m_anniversaries;
    const HolidayList* m_list;
    int m_year = 0;
    QMap<QDate, QString> m_daysOff;  // of that year
};

}  // namespace tickwell::days
