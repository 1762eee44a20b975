// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace tickwell {

/// A periodic timer. Its tick is never called recursively. The destructor stops it.
class Timer {
public:
    virtual ~Timer() = default;

    /// Milliseconds between ticks; values below 1 count as 1. Restarts the interval of a running timer.
    virtual void SetInterval(int milliseconds) = 0;
    virtual void Start() = 0;
    virtual void Stop() = 0;
    virtual bool IsRunning() const = 0;
};

/// Creates all timers of the program, so that tests can control time.
class TimerSource {
public:
    virtual ~TimerSource() = default;

    /// Creates a stopped timer. The source outlives it. Ticks may be off by 5 % of the interval, so that the
    /// system can serve several timers in one wake-up.
    virtual std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) = 0;

    /// The same with exact ticks: never early, and late by a millisecond or two.
    virtual std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) = 0;
};

/// Creates timers that run in real time, independently of the program's clock: sound, drives and helper
/// processes need these. It converts neither to nor from a TimerSource, so that exchanging the two does not
/// compile.
class RealTimerSource {
public:
    /// `source` runs in real time and outlives this object and its copies.
    explicit RealTimerSource(TimerSource& source) : m_source(source) {}

    /// As TimerSource::Create.
    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) {
        return m_source.Create(milliseconds, std::move(onTick));
    }

private:
    TimerSource& m_source;
};

}  // namespace tickwell
