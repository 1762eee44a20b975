// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::days {

/// A row of the table Kinenbi.
struct Anniversary {
    QString name;
    qint32 year = 0;   ///< 0: every year
    qint32 month = 0;  ///< 0: every month
    qint32 day = 0;    ///< 0 if it is defined by the week
    qint32 week = 0;   ///< WeekCode: 10 * week of the month + weekday; 0 if it is defined by the day

    bool operator==(const Anniversary&) const = default;
};

}  // namespace tickwell::days
