// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/timer.h"

namespace tickwell {

/// A timer that skips the ticks at which nothing is due. `interval` bounds how late an unannounced change is
/// noticed: the first tick, and the one after each Wake(), come after it.
class SleepingTimer : public Timer {
public:
    /// The longest sleep in ms, whatever `untilDue` returns: a change that no Wake() has announced is noticed
    /// after this time at the latest.
    static constexpr int kLongestSleep = 60'000;

    /// Creates a stopped timer. `onTick` is a handler: if it fails, the timer stops. `untilDue` is called
    /// after each tick and returns the milliseconds until the next one; 0 or less means the interval.
    /// `handlers` and `source` outlive the timer.
    SleepingTimer(Handlers& handlers, TimerSource& source, int interval, std::function<void()> onTick,
                  std::function<qint64()> untilDue);

    void SetInterval(int milliseconds) override;
    void Start() override;
    void Stop() override { m_timer->Stop(); }
    bool IsRunning() const override { return m_timer->IsRunning(); }

    /// Something may be due sooner than `untilDue` returned. Does nothing while the timer is stopped.
    void Wake();

    /// The same, but ticks immediately.
    void TickNow();

private:
    void SleepFor(int milliseconds);

    Handlers& m_handlers;
    int m_interval;
    int m_sleep;  // ms, the current sleep
    std::function<void()> m_onTick;
    std::function<qint64()> m_untilDue;
    std::unique_ptr<Timer> m_timer;
};

}  // namespace tickwell
