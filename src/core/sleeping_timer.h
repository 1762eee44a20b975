// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/timer.h"

namespace tickwell {

/// A timer that sleeps through the ticks at which nothing would be due. Its interval is how late a change may
/// be noticed that nobody told of: the first tick comes after it, and so does one after each Wake.
class SleepingTimer : public Timer {
public:
    /// How long it sleeps at most, in ms, whatever it is told: what slipped through is made good then.
    static constexpr int kLongestSleep = 60'000;

    /// At rest. `onTick` is a handler: one that fails switches the timer off. `untilDue` is asked after each
    /// tick for the milliseconds until the next one; 0 and below stand for the interval. `handlers` and
    /// `source` outlive it.
    SleepingTimer(Handlers& handlers, TimerSource& source, int interval, std::function<void()> onTick,
                  std::function<qint64()> untilDue);

    void SetInterval(int milliseconds) override;
    void Start() override;
    void Stop() override { m_timer->Stop(); }
    bool IsRunning() const override { return m_timer->IsRunning(); }

    /// Something may be due sooner than was said. Does nothing while it is at rest.
    void Wake();

    /// The same, here and now.
    void TickNow();

private:
    void SleepFor(int milliseconds);

    Handlers& m_handlers;
    int m_interval;
    int m_sleep;  // ms, of the sleep under way
    std::function<void()> m_onTick;
    std::function<qint64()> m_untilDue;
    std::unique_ptr<Timer> m_timer;
};

}  // namespace tickwell
