// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QStringList>

#include "days/month_shape.h"

namespace tickwell::days {

/// A source of the days off: national holidays and their substitutes.
class HolidaySource {
public:
    virtual ~HolidaySource() = default;

    /// The days off of a month, including substitutes. If a day occurs twice, its last name counts. Throws
    /// SqlError.
    virtual QList<NamedDay> DaysOff(const MonthShape& month) const = 0;

    /// The names that are announced on a day. Throws SqlError.
    virtual QStringList NamesOn(QDate day) const = 0;

    /// Whether red days are stored as the user's marks even if only this source made them red.
    virtual bool IsStoredWithMarks() const = 0;
};

}  // namespace tickwell::days
