// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/ports/timer.h"

namespace tickwell::lines {

/// Scrolls a text that is wider than its line to its end, once: it pauses at the beginning, moves, pauses at
/// the end, and returns to the beginning.
class LongTextScroll {
public:
    static constexpr int kPause = 1500;       // ms
    static constexpr int kStepInterval = 25;  // ms a pixel

    /// `timers` outlives this object. `moved` is called after each change of the offset.
    LongTextScroll(TimerSource& timers, std::function<void()> moved);

    /// Starts from the beginning. `excess`: pixels by which the text is wider than its line; at 0 or less
    /// nothing is scrolled.
    void Start(int excess);
    /// Ends where it is; the offset is 0 from then on. `moved` is not called.
    void Stop();

    bool IsRunning() const { return m_timer->IsRunning(); }
    /// Pixels by which the text is moved to the left.
    int Offset() const { return m_offset; }

private:
    void Tick();

    std::unique_ptr<Timer> m_timer;
    std::function<void()> m_moved;
    int m_excess = 0;
    int m_offset = 0;
};

}  // namespace tickwell::lines
