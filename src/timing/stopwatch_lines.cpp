// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_lines.h"

#include <algorithm>

#include "core/duration_text.h"
#include "core/sleeping_timer.h"

namespace tickwell::timing {

void StopwatchLines::Show() {
    m_lines.lower.ShowText(ElapsedText(m_stopwatch.Reading()));
}

void StopwatchLines::Tick() {
    const QString text = ElapsedText(m_stopwatch.Reading());
    if (m_lines.lower.Text() != text) {
        m_lines.lower.SetText(text);
    }
}

qint64 StopwatchLines::UntilDue(qint64 untilFrame) const {
    if (!m_stopwatch.IsRunning()) {
        return SleepingTimer::kLongestSleep;  // starting it wakes the timer
    }
    return std::min(untilFrame, m_stopwatch.UntilOverflow());
}

}  // namespace tickwell::timing
