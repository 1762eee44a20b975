// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_lines.h"

#include "core/duration_text.h"

namespace tickwell {

void StopwatchLines::Show() {
    m_lines.lower.ShowText(ElapsedText(m_stopwatch.Reading()));
}

void StopwatchLines::Tick() {
    const QString text = ElapsedText(m_stopwatch.Reading());
    if (m_lines.lower.Text() != text) {
        m_lines.lower.SetText(text);
    }
}

}  // namespace tickwell
