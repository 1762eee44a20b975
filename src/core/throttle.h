// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/ports/clock.h"
#include "core/ports/timer.h"

namespace tickwell {

/// Runs an action as often as it is asked for, but never twice within an interval: asked after a pause it
/// runs at once and needs no timer, asked too early it runs when the interval is over.
class Throttle {
public:
    /// Clock and source outlive this object. `interval`: ms, above 0.
    Throttle(const Clock& clock, TimerSource& timers, int interval, std::function<void()> action);

    void Request();

private:
    void Run();

    const Clock& m_clock;
    int m_interval;
    std::function<void()> m_action;
    std::optional<qint32> m_ranAt;   // tick
    std::unique_ptr<Timer> m_timer;  // runs while a request waits
};

}  // namespace tickwell
