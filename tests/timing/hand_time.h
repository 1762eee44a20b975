// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/timer.h"

namespace tickwell::timing {

/// Time under the test's control: the test sets the tick counter, and timers tick only when the test fires
/// them: late, in bursts, or not at all.
class HandTime : public Clock, public TimerSource {
public:
    QDateTime Now() const override { return now; }
    qint64 SinceBoot() const override { return since; }

    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override {
        auto timer = std::make_unique<HandTimer>(milliseconds, std::move(onTick));
        timers.push_back(timer.get());
        return timer;
    }
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override {
        return Create(milliseconds, std::move(onTick));
    }

    class HandTimer : public Timer {
    public:
        HandTimer(int milliseconds, std::function<void()> onTick)
            : interval(milliseconds), m_onTick(std::move(onTick)) {}
        void SetInterval(int milliseconds) override { interval = milliseconds; }
        void Start() override { m_running = true; }
        void Stop() override { m_running = false; }
        bool IsRunning() const override { return m_running; }

        /// Delivers a tick if the timer is running.
        void Fire() {
            if (m_running) {
                m_onTick();
            }
        }

        int interval;

    private:
        std::function<void()> m_onTick;
        bool m_running = false;
    };

    QDateTime now{QDate(1998, 11, 15), QTime(21, 5, 7)};
    qint64 since = 0;                ///< milliseconds since boot
    std::vector<HandTimer*> timers;  ///< in the order of creation; not owned
};

}  // namespace tickwell::timing
