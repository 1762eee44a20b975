// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/sleeping_timer.h"
#include "displays/usage_lines.h"

namespace tickwell {

/// The time since the system started.
class UsageDisplay : public Display {
public:
    /// All outlive this object.
    UsageDisplay(const AppSettings& settings, const Clock& clock, Handlers& handlers, TimerSource& timers,
                 const DisplayView& view);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override { m_Win_Timer.Stop(); }
    void Tick() override { m_Win_Timer.TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void Wake() override { m_Win_Timer.Wake(); }

    const Timer& UsageTimer() const { return m_Win_Timer; }

private:
    UsageLines m_lines;
    SleepingTimer m_Win_Timer;
};

}  // namespace tickwell
