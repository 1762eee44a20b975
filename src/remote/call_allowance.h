// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/ports/timer.h"

namespace tickwell::remote {

/// Limits the rate of calls, so that another program cannot keep the window busy. Runs no timer while there
/// are no calls.
class CallAllowance {
public:
    static constexpr int kCallsPerSecond = 100;

    /// `timers` outlives this object.
    explicit CallAllowance(RealTimerSource& timers) : m_second(timers.Create(kSecond, [this] { Renew(); })) {}

    /// Returns whether another call may run in the current second, which starts with its first call.
    bool Take() {
        if (m_taken == 0) {
            m_second->Start();
        }
        if (m_taken == kCallsPerSecond) {
            return false;
        }
        ++m_taken;
        return true;
    }

private:
    static constexpr int kSecond = 1000;  // ms

    void Renew() {
        m_second->Stop();
        m_taken = 0;
    }

    int m_taken = 0;
    std::unique_ptr<Timer> m_second;  // runs while m_taken is above 0
};

}  // namespace tickwell::remote
