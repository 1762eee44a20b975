// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/usage_lines.h"

#include "core/duration_text.h"

namespace tickwell {

UsageLines::UsageLines(const AppSettings& settings, const Clock& clock, TextLines lines)
    : m_settings(settings), m_clock(clock), m_lines(lines) {}

void UsageLines::Show() {
    const qint32 tick = m_clock.Tick();
    m_shownSecond = WholeSeconds(tick);
    m_lines.lower.ShowText(Reading(tick));
}

void UsageLines::Tick() {
    const qint32 tick = m_clock.Tick();
    const qint32 second = WholeSeconds(tick);
    if (second != m_shownSecond) {
        m_shownSecond = second;
        m_lines.lower.SetText(Reading(tick));
    }
}

QString UsageLines::Reading(qint32 tick) const {
    return UsageText(tick, m_settings.language, m_settings.displayMode, m_settings.hourStyle);
}

}  // namespace tickwell
