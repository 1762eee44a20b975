// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/ports/clock.h"
#include "core/ports/timer.h"

namespace tickwell {

/// Runs an action at most once per interval. A request after a longer pause runs it at once, without a timer;
/// one within the interval runs it when the interval ends.
class Throttle {
public:
    /// Clock and source outlive this object. `interval`: ms, above 0.
    Throttle(const Clock& clock, TimerSource& timers, int interval, std::function<void()> action);

    void Request();

    /// Runs the action at once and restarts the interval; a pending request is thereby fulfilled.
    void RunNow();

private:
    const Clock& m_clock;
    int m_interval;
    std::function<void()> m_action;
    std::optional<qint32> m_ranAt;   // tick
    std::unique_ptr<Timer> m_timer;  // runs while a request is pending
};

}  // namespace tickwell
