// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/sleeping_timer.h"
#include "displays/usage_lines.h"

namespace tickwell::displays {

/// The time since the system started.
class UsageDisplay : public Display {
public:
    /// All outlive this object.
    UsageDisplay(const UsageParts& parts, Handlers& handlers, TimerSource& timers, const DisplayView& view);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override { m_timer.Stop(); }
    void Tick() override { m_timer.TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void Wake() override { m_timer.Wake(); }

    const Timer& UsageTimer() const { return m_timer; }

private:
    UsageLines m_lines;
    SleepingTimer m_timer;
};

}  // namespace tickwell::displays
