// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "days/day_marking.h"

namespace tickwell {

inline const QDate kOctober(1998, 10, 1);

/// What colour a day of October 1998 gets in the month of that number: weekdays a colour drawn by the number,
/// so that no month is part of another one, Saturdays and Sundays by turns their own and black. Every day but
/// those is then stored.
inline DayColor OctoberColor(int number, int day) {
    const int weekday = QDate(1998, 10, day).dayOfWeek();
    const bool isEven = number % 2 == 0;
    if (weekday == Qt::Saturday) {
        return isEven ? DayColor::Black : DayColor::Blue;
    }
    if (weekday == Qt::Sunday) {
        return isEven ? DayColor::Black : DayColor::Red;
    }
    const quint32 drawn = static_cast<quint32>(number) * 2654435761U;
    return (drawn >> (day % 32) & 1U) != 0 ? DayColor::Red : DayColor::Blue;
}

}  // namespace tickwell
