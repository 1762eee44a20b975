// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/hybrid_stamp.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace tickwell::sync {

void HybridClock::Observe(const HybridStamp& seen) {
    if (std::tie(seen.milliseconds, seen.counter) > std::tie(m_milliseconds, m_counter)) {
        m_milliseconds = seen.milliseconds;
        m_counter = seen.counter;
    }
}

HybridStamp HybridClock::Next(qint64 now) {
    const qint64 wall = std::clamp(now, qint64{0}, kLastMoment);
    if (wall > m_milliseconds) {
        m_milliseconds = wall;
        m_counter = 0;
    } else if (m_counter < std::numeric_limits<quint32>::max()) {
        ++m_counter;
    } else {
        ++m_milliseconds;
        m_counter = 0;
    }
    return {m_milliseconds, m_counter, m_replica};
}

}  // namespace tickwell::sync
