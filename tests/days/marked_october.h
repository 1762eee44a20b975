// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "days/day_marking.h"

namespace tickwell::days {

inline const QDate kOctober(1998, 10, 1);

/// The colour of a day of October 1998 in the version of the month with that number: a pseudo-random one for
/// weekdays, so that no version is a part of another one; for Saturdays and Sundays alternately black and
/// their own. All days are stored except those with their own colour.
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

}  // namespace tickwell::days
