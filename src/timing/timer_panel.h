// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/countdown.h"

namespace tickwell::timing {

/// The contents of the timer window.
struct TimerEntry {
    qint32 hours = 0;
    qint32 minutes = 0;
    qint32 seconds = 0;
    bool repeat = false;

    bool operator==(const TimerEntry&) const = default;
};

/// The logic of the timer window: the meaning of its entry and the actions of its buttons.
class TimerPanel {
public:
    /// All outlive this object. `countdownTimer` drives the countdown.
    TimerPanel(Countdown& countdown, TextLines lines, Timer& countdownTimer)
        : m_countdown(countdown), m_lines(lines), m_countdownTimer(countdownTimer) {}

    bool IsRunning() const { return m_countdown.State().CountdownRunning; }

    /// Applies the entry and shows its time on the lower line, whatever that line was showing. An entry of
    /// zero becomes fifteen seconds. Returns the resulting entry. Throws OverflowError.
    TimerEntry ReadEntries(const TimerEntry& entry);

    /// The entry to show in the window. A duration of zero becomes fifteen seconds.
    TimerEntry CurrentEntry();

    void SetRepeat(bool repeat) { m_countdown.SetRepeat(repeat); }

    /// Starts with this entry if stopped; stops if running. Throws OverflowError.
    void StartOrStop(const TimerEntry& entry);

    /// Starts a new run of this many milliseconds without repeat, on behalf of another program, and shows its
    /// name on the upper line. Discards a stopped run. Only while the countdown is not running.
    void StartNew(qint32 milliseconds, const QString& name);

    /// Resets to the start of a run with this entry. Throws OverflowError.
    void Reset(const TimerEntry& entry);

private:
    Countdown& m_countdown;
    TextLines m_lines;
    Timer& m_countdownTimer;
};

}  // namespace tickwell::timing
