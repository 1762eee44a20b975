// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/clock.h"
#include "core/settings.h"
#include "core/text_line.h"

namespace tickwell {

/// What both lines show while the clock is the function: the date above, the time below.
class ClockLines {
public:
    /// All outlive this object.
    ClockLines(const AppSettings& settings, const Clock& clock, TextLines lines);

    /// The function was chosen: both lines come in with a wipe.
    void Show();

    /// Dz_Timer1: a new day, or a raised refresh flag, gives a new date text; then the time, when its text
    /// changed.
    void TimeTick();

    /// Dz_Timer2: puts the date text on the upper line.
    void DateTick();

    /// The date text must be made anew before the day changes, for instance because its style changed.
    void RaiseRefresh() { m_refresh = true; }

private:
    const AppSettings& m_settings;
    const Clock& m_clock;
    TextLines m_lines;
    QString m_rememberedDate;  // empty at start: the first tick always looks
    QString m_rememberedTime;
    QString m_dateLine;
    bool m_refresh = false;
};

}  // namespace tickwell
