// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/handlers.h"
#include "core/sleeping_timer.h"
#include "displays/clock_lines.h"

namespace tickwell::displays {

/// The display of date and time, and of today's anniversaries and holidays.
class ClockDisplay : public Display {
public:
    /// All outlive this object.
    ClockDisplay(const ClockParts& parts, Handlers& handlers, TimerSource& timers, const DisplayView& view);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override;
    void Tick() override { m_timeTimer.TickNow(); }
    qint64 UntilDue(bool isSeen) const override { return m_lines.UntilDue(isSeen); }
    void Wake() override { m_timeTimer.Wake(); }
    void Refresh() override;

    const Timer& TimeTimer() const { return m_timeTimer; }
    const Timer& DateTimer() const { return *m_dateTimer; }

private:
    void Dz_Timer1_Timer();

    Handlers& m_handlers;
    ClockLines m_lines;
    SleepingTimer m_timeTimer;           // the time
    std::unique_ptr<Timer> m_dateTimer;  // the upper line
};

}  // namespace tickwell::displays
