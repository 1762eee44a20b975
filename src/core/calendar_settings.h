// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include "core/era.h"

namespace tickwell {

/// What is shown below each day of the calendar.
enum class UnderDays : qint32 { Nothing = 0, SixDay = 1, OldDate = 2 };

/// Features of the calendar used in present-day Japan; all are off by default.
struct CalendarSettings {
    bool holidaysByLaw = false;     ///< the law and the official list replace the table of holidays
    EraStyle eras{};                ///< `next` is set only in the settings file
    bool announcesOldDate = false;  ///< the old calendar's date with its name in the six-day week (rokuyo)
    bool announcesSeasons = false;  ///< solar terms and seasonal days
    bool usesOldDateInOldJapanese = false;
    qint32 underDays = 0;  ///< an UnderDays; other numbers mean Nothing

    bool operator==(const CalendarSettings&) const = default;
};

}  // namespace tickwell
