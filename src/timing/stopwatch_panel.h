// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display_function.h"
#include "core/ports/timer.h"
#include "core/text_line.h"
#include "timing/stopwatch.h"

namespace tickwell::timing {

/// The captions of the window's two changing buttons: what the next click does.
struct StopwatchCaptions {
    QStringView startOrStop;
    QStringView lapOrReset;
};

/// The logic of the stopwatch window: its list and the actions of its buttons.
class StopwatchPanel {
public:
    /// All outlive this object. `readingTimer` updates the reading on the main window.
    StopwatchPanel(Stopwatch& stopwatch, TextLines lines, DisplayFunctions& functions, Timer& readingTimer);

    /// The window opens: the kept list is restored.
    void Load();
    /// The window closes: the list is kept. The stopwatch and its display continue.
    void Unload();

    /// Starts while stopped, stops while running. Throws OverflowError if the reading at the stop overflows;
    /// the stopwatch is stopped nevertheless, and list and lines are unchanged.
    void StartOrStop();
    /// Takes a lap while running, resets while stopped. Throws OverflowError; the lap then does not count.
    void LapOrReset();

    StopwatchCaptions Captions() const;

    /// Laps and stops, one reading per line, separated by CR LF.
    const QString& List() const { return m_list; }

    /// Changes whenever the list is replaced. While it is constant, text is only appended to the list.
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
    Timer& m_readingTimer;
    QString m_list;
    int m_listNumber = 0;
};

}  // namespace tickwell::timing
