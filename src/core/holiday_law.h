// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>

namespace tickwell {

/// Why a day is off.
enum class HolidayKind {
    Holiday,     ///< a day named in the Act on National Holidays
    OneDay,      ///< a day of ceremony with an act of its own
    Substitute,  ///< 振替休日, for a holiday on a Sunday
    Between,     ///< 国民の休日, between two holidays
};

struct Holiday {
    QDate date;
    QString name;
    HolidayKind kind = HolidayKind::Holiday;

    bool operator==(const Holiday&) const = default;
};

/// The years that HolidaysByLaw covers; the first one only from July 20, when the Act came into force.
inline constexpr int kFirstLawYear = 1948;
inline constexpr int kLastLawYear = 2100;

/// The days off of a year by the Act on National Holidays (国民の祝日に関する法律, Act No. 178 of 1948) with
/// its amendments and the acts for single days, in the order of their dates. Empty outside the years above.
/// The equinoxes of future years are those of the almanac's formula: their dates become official in February
/// of the year before.
QList<Holiday> HolidaysByLaw(int year);

}  // namespace tickwell
