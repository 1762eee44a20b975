// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_panel.h"

#include "core/duration_text.h"
#include "timing/lap_line.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

void StopwatchPanel::Load() {
    ReplaceList(m_parts.stopwatch.KeptList());
}

void StopwatchPanel::Unload() {
    m_parts.stopwatch.KeepList(m_list);
}

void StopwatchPanel::StartOrStop() {
    if (m_parts.stopwatch.IsRunning()) {
        Stop();
    } else {
        Start();
    }
}

void StopwatchPanel::LapOrReset() {
    if (m_parts.stopwatch.IsRunning()) {
        TakeLap();
    } else {
        Reset();
    }
}

StopwatchCaptions StopwatchPanel::Captions() const {
    return m_parts.stopwatch.IsRunning()
               ? StopwatchCaptions{.startOrStop = u"ストップ", .lapOrReset = u"ラップ"}
               : StopwatchCaptions{.startOrStop = u"スタート", .lapOrReset = u"リセット"};
}

/// Switches the main window to the stopwatch first: with another function, two timers would write to the same
/// line.
void StopwatchPanel::Start() {
    if (m_parts.functions.GetFuncNumber() != kFunctionStopwatch) {
        m_parts.functions.ChangeFunction(kFunctionStopwatch);
    }
    m_parts.stopwatch.Start();
    m_parts.readingTimer.Start();
}

void StopwatchPanel::Stop() {
    m_parts.readingTimer.Stop();  // before the reading, which may overflow: the run ends in any case
    const QString reading = ElapsedText(m_parts.stopwatch.Stop());
    m_parts.lines.lower.SetText(reading);
    m_list += u"\r\n【Stop】 "_s + reading;  // also for an empty list, which then begins with an empty line
}

void StopwatchPanel::TakeLap() {
    const Stopwatch::Lap lap = m_parts.stopwatch.TakeLap();
    const QString line = LapLine(lap);
    const QString listed = m_parts.further.corrections.lapIntervals ? line + IntervalText(lap) : line;
    if (lap.number < 2) {  // the first one since the reset: replaces earlier stops in the list
        ReplaceList(listed);
        m_parts.lines.upper.ShowText(line);
    } else {
        m_list += u"\r\n"_s + listed;
        m_parts.lines.upper.SetText(line);
    }
}

void StopwatchPanel::Reset() {
    m_parts.stopwatch.Reset();
    m_parts.lines.upper.ShowText(u"ストップウォッチ"_s);
    m_parts.lines.lower.ShowText(ElapsedText(0));
    ReplaceList(QString());
}

void StopwatchPanel::ReplaceList(const QString& list) {
    m_list = list;
    ++m_listNumber;
}

}  // namespace tickwell::timing
