// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/timer.h"
#include "core/settings.h"
#include "core/text_line.h"
#include "display/battery_lines.h"
#include "display/clock_lines.h"
#include "display/function_marks.h"
#include "display/memory_lines.h"
#include "display/usage_lines.h"
#include "media/cd_lines.h"
#include "timing/countdown_lines.h"
#include "timing/stopwatch_lines.h"

namespace tickwell {

/// What the lines show, function by function; owned by the main window.
struct FunctionLines {
    ClockLines& clock;
    UsageLines& usage;
    BatteryLines& battery;
    MemoryLines& memory;
    StopwatchLines& stopwatch;
    CountdownLines& countdown;
    CdLines& cd;
};

/// The timers that refresh the lines, one function each; owned by the main window.
struct FunctionTimers {
    Timer& Dz_Timer1;    ///< clock: the time
    Timer& Dz_Timer2;    ///< clock: the upper line
    Timer& Win_Timer;    ///< Windows usage time
    Timer& Timer1;       ///< stopwatch
    Timer& BatTimer;     ///< battery
    Timer& MemoryTimer;  ///< memory
    Timer& CDTimer2;     ///< CD player
};

/// Which function the main window shows, and what changes when it is another one.
class FunctionSwitch {
public:
    /// All outlive this object.
    FunctionSwitch(AppSettings& settings, TextLines lines, FunctionMarks& marks, const FunctionTimers& timers,
                   const FunctionLines& functionLines);

    void ChangeFunction(qint32 number);

private:
    void ShowFirstTexts(qint32 number);

    AppSettings& m_settings;
    TextLines m_lines;
    FunctionMarks& m_marks;
    FunctionTimers m_timers;
    FunctionLines m_functionLines;
};

}  // namespace tickwell
