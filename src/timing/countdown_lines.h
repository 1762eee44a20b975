// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/countdown.h"
#include "timing/timer_windows.h"

namespace tickwell::timing {

/// The countdown on the main window: handles its ticks and shows it on the lines.
class CountdownLines {
public:
    /// All outlive this object.
    CountdownLines(Countdown& countdown, TextLines lines, TimerWindows& windows)
        : m_countdown(countdown), m_lines(lines), m_windows(windows) {}

    /// Call when the function is chosen: the set time is wiped in. A countdown that is not running loses its
    /// pause, and its window is shown; a running one continues, and its next tick shows the remaining time.
    void Show();

    /// Call when another function is chosen: the countdown continues unseen.
    void Hide() { m_countdown.SetShownOnMain(false); }

    /// The handler of TimerTimer, which is passed in to be stopped at zero. A late tick reaches zero only
    /// once; each of the following ticks handles one more missed cycle.
    void Tick(Timer& timer);

    /// Shows the current remaining time between two ticks, if the lines show the countdown. Reaching zero is
    /// left to the tick.
    void BringUp();

    /// Milliseconds until the next tick that changes something: `untilFrame` ms, the time until the lines can
    /// show a change, or less if zero is reached earlier.
    qint64 UntilDue(qint64 untilFrame) const;

private:
    void EndRun(Timer& timer);
    void BeginNextCycle();

    Countdown& m_countdown;
    TextLines m_lines;
    TimerWindows& m_windows;
};

}  // namespace tickwell::timing
