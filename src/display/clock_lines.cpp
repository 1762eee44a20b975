// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/clock_lines.h"

#include "core/clock_text.h"
#include "days/announced_names.h"

namespace tickwell {

namespace {

QString DateLine(const AppSettings& settings, QDate today) {
    return DateText(today, settings.language, settings.yearStyle, settings.displayMode);
}

QString TimeLine(const AppSettings& settings, QTime now) {
    return ClockText(now, settings.language, settings.displayMode, settings.hourStyle);
}

}  // namespace

ClockLines::ClockLines(const AppSettings& settings, const Clock& clock,
                       const std::unique_ptr<DayDatabase>& dayDatabase, TextLines lines)
    : m_settings(settings), m_clock(clock), m_dayDatabase(dayDatabase), m_lines(lines) {}

void ClockLines::Show() {
    const QDateTime now = m_clock.Now();
    m_lines.upper.ShowText(DateLine(m_settings, now.date()));
    m_lines.lower.ShowText(TimeLine(m_settings, now.time()));
}

void ClockLines::LookUp() {
    const QDate today = m_clock.Now().date();
    const QString date = today.toString(Qt::ISODate);
    if ((date == m_rememberedDate && !m_refresh) || m_dayDatabase == nullptr) {
        return;
    }
    m_dateLine = DateLine(m_settings, today);
    m_rememberedDate = date;
    m_turn = 0;
    m_refresh = false;
    m_names.clear();
    m_names = AnnouncedNames(*m_dayDatabase, today);
}

void ClockLines::TimeTick() {
    const QTime now = m_clock.Now().time();
    const QString time = now.toString(Qt::ISODate);
    if (time != m_rememberedTime) {
        m_rememberedTime = time;
        m_lines.lower.SetText(TimeLine(m_settings, now));
    }
}

void ClockLines::RotateTick() {
    if (m_names.isEmpty()) {
        m_lines.upper.SetText(m_dateLine);
        return;
    }
    m_turn = m_turn < m_names.size() ? m_turn + 1 : 0;
    m_lines.upper.ShowText(m_turn == 0 ? m_dateLine : m_names[m_turn - 1]);
}

}  // namespace tickwell
