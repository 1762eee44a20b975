// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display_function.h"
#include "core/ports/timer.h"
#include "core/settings.h"
#include "core/text_line.h"
#include "timing/stopwatch.h"

namespace tickwell::timing {

/// The captions of the window's two changing buttons: what the next click does.
struct StopwatchCaptions {
    QStringView startOrStop;
    QStringView lapOrReset;
};

/// What the logic of the stopwatch window works with; all outlive it.
struct StopwatchPanelParts {
    Stopwatch& stopwatch;
    TextLines lines;
    DisplayFunctions& functions;
    Timer& readingTimer;  ///< updates the reading on the main window
    const FurtherSettings& further;
};

/// The logic of the stopwatch window: its list and the actions of its buttons.
class StopwatchPanel {
public:
    explicit StopwatchPanel(const StopwatchPanelParts& parts) : m_parts(parts) {}

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

    /// Laps and stops, one reading per line, separated by CR LF. A lap has its interval after the reading if
    /// the settings selected intervals when it was taken.
    const QString& List() const { return m_list; }

    /// Changes whenever the list is replaced. While it is constant, text is only appended to the list.
    int ListNumber() const { return m_listNumber; }

private:
    void Start();
    void Stop();
    void TakeLap();
    void Reset();
    void ReplaceList(const QString& list);

    StopwatchPanelParts m_parts;
    QString m_list;
    int m_listNumber = 0;
};

}  // namespace tickwell::timing
