// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// A row of the table Kinenbi.
struct Anniversary {
    QString name;
    qint32 year = 0;   ///< 0: every year
    qint32 month = 0;  ///< 0: every month
    qint32 day = 0;    ///< 0 where the week says it
    qint32 week = 0;   ///< 10 * which of its weekday in the month + weekday; 0 where the day says it

    bool operator==(const Anniversary&) const = default;
};

}  // namespace tickwell
