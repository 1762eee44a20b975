// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QtGlobal>

namespace tickwell {

/// What is told by notices of the desktop; by default nothing.
struct NoticeSettings {
    bool tellsDays = false;       ///< the names of days
    QList<qint32> daysAhead{0};   ///< each of 0, 1, 3 and 7; other numbers are kept and ignored
    qint32 time = 9 * 60;         ///< minutes since midnight; clamped to 0..1439 when used
    bool counts = false;          ///< a year in brackets at the end of a name is told as the years since then
    bool tellsCountdown = false;  ///< the end of the countdown

    bool operator==(const NoticeSettings&) const = default;
};

}  // namespace tickwell
