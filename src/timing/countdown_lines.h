// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/countdown.h"
#include "timing/timer_windows.h"

namespace tickwell {

/// The countdown on the main window: its tick, and what the lines show of it.
class CountdownLines {
public:
    /// All outlive this object.
    CountdownLines(Countdown& countdown, TextLines lines, TimerWindows& windows)
        : m_countdown(countdown), m_lines(lines), m_windows(windows) {}

    /// The function was chosen: the set time is wiped in. A countdown that does not run loses its pause, and
    /// its window is shown; a running one goes on, and its next tick shows the remaining time.
    void Show();

    /// Another function was chosen: the countdown goes on unseen.
    void Hide() { m_countdown.SetShownOnMain(false); }

    /// TimerTimer, which is handed in to be stopped at zero. A tick that comes late crosses zero once; the
    /// cycles it missed follow tick by tick.
    void Tick(Timer& timer);

    /// Between two ticks: the rest of this moment, where it is shown. Zero waits for its tick.
    void BringUp();

    /// Milliseconds until the next tick that shows something new, where the lines show a change after
    /// `untilFrame` ms, or that comes to zero.
    qint64 UntilDue(qint64 untilFrame) const;

private:
    void EndRun(Timer& timer);
    void BeginNextCycle();

    Countdown& m_countdown;
    TextLines m_lines;
    TimerWindows& m_windows;
};

}  // namespace tickwell
