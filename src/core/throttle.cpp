// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/throttle.h"

#include "core/integers.h"

namespace tickwell {

Throttle::Throttle(const Clock& clock, TimerSource& timers, int interval, std::function<void()> action)
    : m_clock(clock),
      m_interval(interval),
      m_action(std::move(action)),
      m_timer(timers.Create(interval, [this] { RunNow(); })) {
    Q_ASSERT(interval > 0);
}

void Throttle::Request() {
    if (m_timer->IsRunning()) {
        return;
    }
    const auto interval = static_cast<quint32>(m_interval);
    const quint32 passed = m_ranAt ? TicksSince(*m_ranAt, m_clock.Tick()) : interval;
    if (passed >= interval) {
        RunNow();
    } else {
        m_timer->SetInterval(static_cast<int>(interval - passed));
        m_timer->Start();
    }
}

void Throttle::RunNow() {
    m_timer->Stop();
    m_ranAt = m_clock.Tick();
    m_action();
}

}  // namespace tickwell
