// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <utility>

#include "core/ports/timer.h"

namespace tickwell {

/// Timers for sound and drives that another source advances, for instance a VirtualTime.
class VirtualRealTime : public RealTimerSource {
public:
    /// `source` outlives this object.
    explicit VirtualRealTime(TimerSource& source) : m_source(source) {}

    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override {
        return m_source.Create(milliseconds, std::move(onTick));
    }
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override {
        return m_source.CreateExact(milliseconds, std::move(onTick));
    }

private:
    TimerSource& m_source;
};

}  // namespace tickwell
