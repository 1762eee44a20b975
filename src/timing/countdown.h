// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/clock.h"

namespace tickwell::timing {

/// The state of the program's countdown timer; one instance. Times are in milliseconds, either ticks or
/// durations.
struct CountdownState {
    qint32 CountdownDuration = 0;  ///< the set time; 0 means 15000 until it is first used
    qint32 CountdownStart = 0;     ///< tick at which the current cycle nominally began
    qint32 CountdownPausedAt = 0;  ///< tick of the last stop; 0 if it was not stopped
    bool CountdownRunning = false;
    bool CountdownRepeat = false;   ///< starts again at zero
    qint32 CountdownLoopCount = 0;  ///< repeated cycles since the program started, over all runs
    bool TimerShownOnMain = false;  ///< the main window shows the countdown
    QString CountdownName;          ///< of the last run; empty unless another program set it
};

/// The rules of the countdown. An overflow throws OverflowError and leaves the state unchanged.
class Countdown {
public:
    /// Both outlive this object.
    Countdown(CountdownState& state, const Clock& clock) : m_state(state), m_clock(clock) {}

    const CountdownState& State() const { return m_state; }

    /// Remaining milliseconds, negative if the tick is late. Only while the countdown is running.
    qint32 Remaining() const;

    /// The same in every state: of a stopped countdown what it would start with. Throws OverflowError.
    qint32 RemainingNow() const;

    /// Milliseconds for which Remaining() is safe from overflow.
    qint64 UntilOverflow() const;

    void SetDuration(qint32 milliseconds) { m_state.CountdownDuration = milliseconds; }
    void SetRepeat(bool repeat) { m_state.CountdownRepeat = repeat; }
    void SetShownOnMain(bool shown) { m_state.TimerShownOnMain = shown; }

    /// Replaces a duration of zero by fifteen seconds; returns whether it was zero.
    bool ReplaceZero();

    /// Starts a new run, without a name, or continues a stopped one with its remaining time.
    void Start();
    void SetName(const QString& name) { m_state.CountdownName = name; }
    void Stop();
    /// Discards a pause, so that the next start begins a new run. Duration and loop count are unchanged.
    void Forget();
    /// The countdown has reached zero and does not repeat.
    void End();
    /// The countdown has reached zero and repeats: the next cycle begins exactly where the last one ended,
    /// however late the tick is.
    void BeginNextCycle();

private:
    CountdownState& m_state;
    const Clock& m_clock;
};

}  // namespace tickwell::timing
