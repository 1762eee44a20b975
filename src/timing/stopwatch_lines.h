// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/text_line.h"
#include "timing/stopwatch.h"

namespace tickwell {

/// The stopwatch's reading on the lower line.
class StopwatchLines {
public:
    /// All outlive this object.
    StopwatchLines(const Stopwatch& stopwatch, TextLines lines) : m_stopwatch(stopwatch), m_lines(lines) {}

    /// The function was chosen: the reading comes in with a wipe.
    void Show();

    /// Timer1: the reading is replaced in place. A stopwatch that stands still lets the wipe end.
    void Tick();

    /// Milliseconds until the next tick that shows something new, where the lines show a change after
    /// `untilFrame` ms.
    qint64 UntilDue(qint64 untilFrame) const;

private:
    const Stopwatch& m_stopwatch;
    TextLines m_lines;
};

}  // namespace tickwell
