// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/function_switch.h"

#include "display/function_rows.h"

namespace tickwell {

FunctionSwitch::FunctionSwitch(AppSettings& settings, TextLines lines, FunctionMarks& marks,
                               const FunctionTimers& timers, const FunctionLines& functionLines)
    : m_settings(settings),
      m_lines(lines),
      m_marks(marks),
      m_timers(timers),
      m_functionLines(functionLines) {}

void FunctionSwitch::ChangeFunction(qint32 number) {
    m_settings.function = number;  // first: also a number that names no function is kept
    for (Timer* timer : {&m_timers.Dz_Timer1, &m_timers.Dz_Timer2, &m_timers.Win_Timer, &m_timers.Timer1,
                         &m_timers.BatTimer, &m_timers.MemoryTimer, &m_timers.CDTimer2}) {
        timer->Stop();
    }
    m_functionLines.countdown.Hide();
    m_functionLines.battery.Hide();
    const FunctionRow* row = FunctionRowOf(number);
    m_marks.CheckFunction(number);
    m_marks.EnableOperation(row == nullptr || row->hasOperationItem);
    if (row == nullptr) {
        return;
    }
    if (!row->title.isEmpty()) {
        m_lines.upper.ShowText(row->title.toString());
    }
    ShowFirstTexts(number);
}

void FunctionSwitch::ShowFirstTexts(qint32 number) {
    switch (number) {
        case kFunctionClock:
            m_functionLines.clock.Show();
            m_timers.Dz_Timer1.Start();
            m_timers.Dz_Timer2.Start();
            break;
        case kFunctionUsage:
            m_functionLines.usage.Show();
            m_timers.Win_Timer.Start();
            break;
        case kFunctionStopwatch:
            m_functionLines.stopwatch.Show();
            m_timers.Timer1.Start();
            break;
        case kFunctionTimer:
            m_functionLines.countdown.Show();
            break;
        case kFunctionBattery:
            m_functionLines.battery.Refresh();  // at once: the next reading is ten seconds away
            m_timers.BatTimer.Start();
            break;
        case kFunctionMemory:
            m_functionLines.memory.Show();
            m_timers.MemoryTimer.Start();
            break;
        case kFunctionCd:
            m_functionLines.cd.Show();
            m_timers.CDTimer2.Start();
            break;
        default:
            break;
    }
}

}  // namespace tickwell
