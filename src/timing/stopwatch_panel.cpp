// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_panel.h"

#include "core/duration_text.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

StopwatchPanel::StopwatchPanel(Stopwatch& stopwatch, TextLines lines, DisplayFunctions& functions,
                               Timer& readingTimer)
    : m_stopwatch(stopwatch), m_lines(lines), m_functions(functions), m_readingTimer(readingTimer) {}

void StopwatchPanel::Load() {
    ReplaceList(m_stopwatch.KeptList());
}

void StopwatchPanel::Unload() {
    m_stopwatch.KeepList(m_list);
}

void StopwatchPanel::StartOrStop() {
    if (m_stopwatch.IsRunning()) {
        Stop();
    } else {
        Start();
    }
}

void StopwatchPanel::LapOrReset() {
    if (m_stopwatch.IsRunning()) {
        TakeLap();
    } else {
        Reset();
    }
}

StopwatchCaptions StopwatchPanel::Captions() const {
    return m_stopwatch.IsRunning() ? StopwatchCaptions{.startOrStop = u"ストップ", .lapOrReset = u"ラップ"}
                                   : StopwatchCaptions{.startOrStop = u"スタート", .lapOrReset = u"リセット"};
}

/// Switches the main window to the stopwatch first: with another function, two timers would write to the same
/// line.
void StopwatchPanel::Start() {
    if (m_functions.GetFuncNumber() != kFunctionStopwatch) {
        m_functions.ChangeFunction(kFunctionStopwatch);
    }
    m_stopwatch.Start();
    m_readingTimer.Start();
}

void StopwatchPanel::Stop() {
    m_readingTimer.Stop();  // before the reading, which may overflow: the run ends in any case
    const QString reading = ElapsedText(m_stopwatch.Stop());
    m_lines.lower.SetText(reading);
    m_list += u"\r\n【Stop】 "_s + reading;  // also for an empty list, which then begins with an empty line
}

void StopwatchPanel::TakeLap() {
    const Stopwatch::Lap lap = m_stopwatch.TakeLap();
    const QString line = u"Lapse"_s + QString::number(lap.number) + u"  " + ElapsedText(lap.reading);
    if (lap.number < 2) {  // the first one since the reset: replaces earlier stops in the list
        ReplaceList(line);
        m_lines.upper.ShowText(line);
    } else {
        m_list += u"\r\n"_s + line;
        m_lines.upper.SetText(line);
    }
}

void StopwatchPanel::Reset() {
    m_stopwatch.Reset();
    m_lines.upper.ShowText(u"ストップウォッチ"_s);
    m_lines.lower.ShowText(ElapsedText(0));
    ReplaceList(QString());
}

void StopwatchPanel::ReplaceList(const QString& list) {
    m_list = list;
    ++m_listNumber;
}

}  // namespace tickwell::timing
