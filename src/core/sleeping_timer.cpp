// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/sleeping_timer.h"

#include <algorithm>
#include <utility>

namespace tickwell {

SleepingTimer::SleepingTimer(Handlers& handlers, TimerSource& source, int interval,
                             std::function<void()> onTick, std::function<qint64()> untilDue)
    : m_handlers(handlers),
      m_interval(interval),
      m_sleep(interval),
      m_onTick(std::move(onTick)),
      m_untilDue(std::move(untilDue)),
      m_timer(source.CreateExact(interval, [this] { TickNow(); })) {}

void SleepingTimer::SetInterval(int milliseconds) {
    m_interval = milliseconds;
    SleepFor(m_interval);
}

void SleepingTimer::Start() {
    SleepFor(m_interval);
    m_timer->Start();
}

/// Never extends the current sleep, so frequent Wake() calls cannot starve the timer.
void SleepingTimer::Wake() {
    if (m_sleep > m_interval) {
        SleepFor(m_interval);
    }
}

void SleepingTimer::TickNow() {
    if (!IsRunning()) {
        return;
    }
    m_handlers.RunTick(*m_timer, [this] {
        m_onTick();
        if (IsRunning()) {
            const qint64 untilDue = m_untilDue();
            SleepFor(untilDue > 0 ? static_cast<int>(std::min<qint64>(untilDue, kLongestSleep)) : m_interval);
        }
    });
}

void SleepingTimer::SleepFor(int milliseconds) {
    m_sleep = milliseconds;
    m_timer->SetInterval(milliseconds);
}

}  // namespace tickwell
