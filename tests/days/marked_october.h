// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "days/day_marking.h"

namespace tickwell::days {

inline const QDate kOctober(1998, 10, 1);

/// The colour of a day of October 1998 in version `number` of the month. Weekdays: red or blue,
/// pseudo-random, so that no version is a subset of another. Saturdays and Sundays: black in even versions,
/// their default (blue, red) in odd ones. The database stores only days whose colour is not the default.
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
