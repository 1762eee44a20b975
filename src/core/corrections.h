// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Corrections of behaviour that users may depend on; by default all are off.
struct Corrections {
    bool weekdayAnniversaries = false;  ///< announced on their own day, and edited and deleted by their row
    bool editorTakesDate = false;       ///< the editor starts with the date of the row
    bool dateTurnsAtMidnight = false;   ///< the upper line shows a new date immediately
    bool longUsage = false;             ///< the time since boot stays correct after 24.8 days
    bool searchAcrossMonths = false;    ///< finds anniversaries of every year in ranges that cross months
    bool lapIntervals = false;          ///< shows each lap with the time since the previous one
    bool showsToday = false;            ///< a frame around today, and dots at days with anniversaries
    bool keepsMarksOnClose = false;     ///< closing the calendar while marking stores the marks
    bool savesImmediately = false;      ///< OK and 適用 write the settings file

    bool operator==(const Corrections&) const = default;
};

}  // namespace tickwell
