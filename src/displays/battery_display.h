// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/handlers.h"
#include "displays/battery_lines.h"

namespace tickwell::displays {

/// The display of the power source.
class BatteryDisplay : public Display {
public:
    /// All outlive this object.
    BatteryDisplay(const Power& power, Handlers& handlers, TimerSource& timers, const DisplayView& view);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override;
    /// The battery is read at the same times whether or not the lines are visible.
    void Tick() override {}
    qint64 UntilDue(bool isSeen) const override;

    const Timer& BatTimer() const { return *m_timer; }

private:
    BatteryLines m_lines;
    std::unique_ptr<Timer> m_timer;
};

}  // namespace tickwell::displays
