// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

namespace tickwell {

/// Ticks again and again while it runs. Never delivered again from inside its own tick. Ends with its
/// destruction.
class Timer {
public:
    virtual ~Timer() = default;

    /// Milliseconds from one tick to the next; below 1 counts as 1. A running timer starts its interval anew.
    virtual void SetInterval(int milliseconds) = 0;
    virtual void Start() = 0;
    virtual void Stop() = 0;
    virtual bool IsRunning() const = 0;
};

/// Where all timers of the program come from, so that time can be turned by hand.
class TimerSource {
public:
    virtual ~TimerSource() = default;

    /// A timer at rest. The source outlives it. Its ticks may be off by a twentieth of the interval, so that
    /// the system can wake up for several at once.
    virtual std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) = 0;

    /// The same for ticks that meet a moment: never early, and late by a millisecond or two.
    virtual std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) = 0;
};

}  // namespace tickwell
