// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display_function.h"
#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/stopwatch.h"

namespace tickwell {

/// What the two changing buttons of the stopwatch's window say: always what they will do.
struct StopwatchCaptions {
    QStringView command1;
    QStringView command2;
};

/// The stopwatch's window without the window: its list, and what its buttons do.
class StopwatchPanel {
public:
    /// All outlive this object. `timer1` refreshes the reading on the main window.
    StopwatchPanel(Stopwatch& stopwatch, TextLines lines, DisplayFunctions& functions, Timer& timer1);

    /// The window opens: the kept list comes back.
    void Load();
    /// The window closes: the list is kept. The stopwatch and its display go on.
    void Unload();

    /// Start while stopped, stop while running. Throws OverflowError if the reading of a stop overflows; the
    /// stopwatch is stopped nevertheless, and list and lines stay as they were.
    void StartOrStop();
    /// Lap while running, reset while stopped. Throws OverflowError; the lap then does not count.
    void LapOrReset();

    StopwatchCaptions Captions() const;

    /// Laps and stops, a reading a line, parted by CR LF.
    const QString& List() const { return m_list; }

    /// Changes whenever the list is replaced. While it stays, the list only grows at its end.
    int ListNumber() const { return m_listNumber; }

private:
    void Start();
    void Stop();
    void TakeLap();
    void Reset();
    void ReplaceList(const QString& list);

    Stopwatch& m_stopwatch;
    TextLines m_lines;
    DisplayFunctions& m_functions;
    Timer& m_Timer1;
    QString m_list;
    int m_listNumber = 0;
};

}  // namespace tickwell
