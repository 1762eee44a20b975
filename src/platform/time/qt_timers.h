// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"

namespace tickwell::platform {

/// Timers of the event loop.
class QtTimers : public TimerSource {
public:
    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override;
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override;
};

}  // namespace tickwell::platform
