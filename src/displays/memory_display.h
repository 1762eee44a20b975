// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/sleeping_timer.h"
#include "displays/memory_lines.h"

namespace tickwell::displays {

/// The memory load.
class MemoryDisplay : public Display {
public:
    /// All outlive this object.
    MemoryDisplay(const Memory& memory, Handlers& handlers, TimerSource& timers, const DisplayView& view);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override { m_timer.Stop(); }
    void Tick() override { m_timer.TickNow(); }
    qint64 UntilDue(bool isSeen) const override;

    const Timer& MemoryTimer() const { return m_timer; }

private:
    MemoryLines m_lines;
    SleepingTimer m_timer;
};

}  // namespace tickwell::displays
