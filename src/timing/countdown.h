// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/clock.h"

namespace tickwell {

/// The countdown timer of the program; one instance. Times are milliseconds, of the tick counter or of a
/// duration.
struct CountdownState {
    qint32 CountdownDuration = 0;  ///< the set time; 0 stands for 15000 until it is first used
    qint32 CountdownStart = 0;     ///< tick at which the current cycle is taken to have begun
    qint32 CountdownPausedAt = 0;  ///< tick of the last stop; 0 when it was not stopped
    bool CountdownRunning = false;
    bool CountdownRepeat = false;   ///< starts again at zero
    qint32 CountdownLoopCount = 0;  ///< repeated cycles since the program started, over all resets and runs
    bool TimerShownOnMain = false;  ///< the main window shows the countdown
};

/// What the countdown does. A sum that overflows throws OverflowError and leaves the state as it was.
class Countdown {
public:
    /// Both outlive this object.
    Countdown(CountdownState& state, const Clock& clock) : m_state(state), m_clock(clock) {}

    const CountdownState& State() const { return m_state; }

    /// Milliseconds to zero, below zero when the tick is late. For a running countdown.
    qint32 Remaining() const;

    /// Milliseconds for which Remaining stays in order; an overflow may come with the next.
    qint64 UntilOverflow() const;

    void SetDuration(qint32 milliseconds) { m_state.CountdownDuration = milliseconds; }
    void SetRepeat(bool repeat) { m_state.CountdownRepeat = repeat; }
    void SetShownOnMain(bool shown) { m_state.TimerShownOnMain = shown; }

    /// A duration of zero becomes fifteen seconds; true where it was zero.
    bool ReplaceZero();

    /// From idle a new run; from a stop the rest of it, the time of the pause not counted.
    void Start();
    void Stop();
    /// Back to the beginning of a run: a pause is forgotten. Neither duration nor loop count change.
    void Forget();
    /// Zero, and no repeat.
    void End();
    /// Zero, and repeat: the next cycle began where the last one ended, however late the tick came.
    void BeginNextCycle();

private:
    CountdownState& m_state;
    const Clock& m_clock;
};

}  // namespace tickwell
