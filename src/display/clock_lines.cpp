// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/clock_lines.h"

#include "core/clock_text.h"

namespace tickwell {

namespace {

QString DateLine(const AppSettings& settings, QDate today) {
    return DateText(today, settings.language, settings.yearStyle, settings.displayMode);
}

QString TimeLine(const AppSettings& settings, QTime now) {
    return ClockText(now, settings.language, settings.displayMode, settings.hourStyle);
}

}  // namespace

ClockLines::ClockLines(const AppSettings& settings, const Clock& clock, TextLines lines)
    : m_settings(settings), m_clock(clock), m_lines(lines) {}

void ClockLines::Show() {
    const QDateTime now = m_clock.Now();
    m_lines.upper.ShowText(DateLine(m_settings, now.date()));
    m_lines.lower.ShowText(TimeLine(m_settings, now.time()));
}

void ClockLines::TimeTick() {
    const QDateTime now = m_clock.Now();
    const QString date = now.date().toString(Qt::ISODate);
    if (date != m_rememberedDate || m_refresh) {
        m_dateLine = DateLine(m_settings, now.date());
        m_rememberedDate = date;
        m_refresh = false;
    }
    const QString time = now.time().toString(Qt::ISODate);
    if (time != m_rememberedTime) {
        m_rememberedTime = time;
        m_lines.lower.SetText(TimeLine(m_settings, now.time()));
    }
}

void ClockLines::DateTick() {
    m_lines.upper.SetText(m_dateLine);
}

}  // namespace tickwell
