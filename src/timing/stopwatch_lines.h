// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/text_line.h"
#include "timing/stopwatch.h"

namespace tickwell::timing {

/// The stopwatch's reading on the lower line.
class StopwatchLines {
public:
    /// All outlive this object.
    StopwatchLines(const Stopwatch& stopwatch, TextLines lines) : m_stopwatch(stopwatch), m_lines(lines) {}

    /// Call when the function is chosen: wipes the reading in.
    void Show();

    /// Called by the display's timer: replaces the reading in place. Writes nothing if the reading is
    /// unchanged, so that a wipe can finish while the stopwatch is stopped.
    void Tick();

    /// Milliseconds until the next tick that changes something. `untilFrame`: ms until the lines can show a
    /// change.
    qint64 UntilDue(qint64 untilFrame) const;

private:
    const Stopwatch& m_stopwatch;
    TextLines m_lines;
};

}  // namespace tickwell::timing
