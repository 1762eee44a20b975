// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/countdown.h"

namespace tickwell {

/// What stands in the timer's window.
struct TimerEntry {
    qint32 hours = 0;
    qint32 minutes = 0;
    qint32 seconds = 0;
    bool repeat = false;

    bool operator==(const TimerEntry&) const = default;
};

/// The timer's window without the window: what its entry means and what its buttons do.
class TimerPanel {
public:
    /// All outlive this object. `timerTimer` is the countdown's tick.
    TimerPanel(Countdown& countdown, TextLines lines, Timer& timerTimer)
        : m_countdown(countdown), m_lines(lines), m_TimerTimer(timerTimer) {}

    bool IsRunning() const { return m_countdown.State().CountdownRunning; }

    /// Takes the entry over and shows its time on the lower line, whatever that shows. An entry of zero
    /// becomes fifteen seconds. Returns the entry as it stands then. Throws OverflowError.
    TimerEntry ReadEntries(const TimerEntry& entry);

    /// What the window shall show now. A duration of zero becomes fifteen seconds.
    TimerEntry CurrentEntry();

    void SetRepeat(bool repeat) { m_countdown.SetRepeat(repeat); }

    /// Start while it stands still, with this entry; stop while it runs. Throws OverflowError.
    void StartOrStop(const TimerEntry& entry);

    /// Back to the beginning, with this entry. Throws OverflowError.
    void Reset(const TimerEntry& entry);

private:
    Countdown& m_countdown;
    TextLines m_lines;
    Timer& m_TimerTimer;
};

}  // namespace tickwell
