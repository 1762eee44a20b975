// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/clock_lines.h"

#include <algorithm>
#include <utility>

#include "core/clock_text.h"
#include "core/integers.h"
#include "core/old_calendar.h"
#include "core/zone_time.h"

namespace tickwell::displays {

namespace {

QString DateLine(const ClockParts& parts, QDate today) {
    const AppSettings& settings = parts.settings;
    const CalendarSettings& calendar = parts.announcements.further.calendar;
    if (calendar.usesOldDateInOldJapanese && settings.language == kLanguageOldJapanese) {
        if (const auto oldDate = OldDateOf(today)) {
            return OldJapaneseDateText(*oldDate);
        }
    }
    return DateText(today, settings.language, settings.yearStyle, settings.displayMode, calendar.eras);
}

QString TimeLine(const AppSettings& settings, QTime now) {
    return ClockText(now, settings.language, settings.displayMode, settings.hourStyle);
}

// ms
constexpr int kClockSecond = 1000;
constexpr int kClockMinute = 60'000;
constexpr quint32 kRetryInterval = 5000;  // between two attempts to query the closed database

/// The number of whole steps since midnight; -1 for an invalid time.
int WholeSteps(QTime time, int step) {
    return time.isValid() ? time.msecsSinceStartOfDay() / step : -1;
}

}  // namespace

ClockLines::ClockLines(const ClockParts& parts, TextLines lines, std::function<void()> onDateShown)
    : m_parts(parts), m_lines(lines), m_onDateShown(std::move(onDateShown)) {}

void ClockLines::Show() {
    const QDateTime now = m_parts.clock.Now();
    m_seenDate = now.date();
    m_lines.upper.ShowText(DateLine(m_parts, now.date()));
    m_lines.lower.ShowText(TimeLine(m_parts.settings, now.time()));
}

void ClockLines::LookUp() {
    const QDate today = m_parts.clock.Now().date();
    const QString date = today.toString(Qt::ISODate);
    if (IsLookUpDue(date)) {
        m_dateLine = DateLine(m_parts, today);
        m_rememberedDate = date;
        m_turn = 0;
        m_refresh = false;
        m_names.clear();
        m_areNamesDue = true;
        m_tried.reset();
        ShowIfNew(today);
    }
    if (m_areNamesDue && UntilNextTry() == 0) {
        AskForNames(today);
    }
}

/// Wipes in the date on a new day, but not on a refresh, and not if Show has already done so.
void ClockLines::ShowIfNew(QDate today) {
    const bool isNew = today != std::exchange(m_seenDate, today);
    if (isNew && m_parts.announcements.further.corrections.dateTurnsAtMidnight) {
        m_lines.upper.ShowText(m_dateLine);
        m_onDateShown();
    }
}

void ClockLines::AskForNames(QDate today) {
    m_tried = m_parts.clock.Tick();
    if (m_parts.announcements.dayDatabase.TryOpen()) {
        m_areNamesDue = false;  // even if the query fails
        m_names = days::AnnouncedNames(m_parts.announcements, today);
    }
}

qint64 ClockLines::UntilNextTry() const {
    const quint32 passed = m_tried ? TicksSince(*m_tried, m_parts.clock.Tick()) : kRetryInterval;
    return passed < kRetryInterval ? kRetryInterval - passed : 0;
}

void ClockLines::TimeTick() {
    const QTime now = m_parts.clock.Now().time();
    if (WholeSteps(now, kClockSecond) != WholeSteps(m_rememberedTime, kClockSecond)) {
        m_rememberedTime = now;
        m_lines.lower.SetText(TimeLine(m_parts.settings, now));
        UpdateZone();
    }
}

/// The time in the other zone; empty if none is set or its zone is unknown.
QString ClockLines::ZoneLine() const {
    const FaceSettings& face = m_parts.announcements.further.face;
    return face.showsZone ? ZoneTimeText(face.zoneName, face.zone, m_parts.clock.Now()) : QString();
}

/// While this text is shown, its minute can change.
void ClockLines::UpdateZone() {
    if (m_zoneLine.isEmpty() || m_lines.upper.Text() != m_zoneLine) {
        return;
    }
    const QString line = ZoneLine();
    if (!line.isEmpty() && line != m_zoneLine) {
        m_zoneLine = line;
        m_lines.upper.SetText(line);
    }
}

qint64 ClockLines::UntilDue(bool isSeen) const {
    const QDateTime now = m_parts.clock.Now();
    if (IsLookUpDue(now.date().toString(Qt::ISODate))) {
        return 0;
    }
    const qint64 untilTime = UntilTimeDue(now.time(), isSeen);
    return m_areNamesDue ? std::min(untilTime, UntilNextTry()) : untilTime;
}

qint64 ClockLines::UntilTimeDue(QTime now, bool isSeen) const {
    const bool hasSeconds =
        m_parts.settings.language == kLanguageJapanese || m_parts.settings.language == kLanguageEnglish;
    // The window of another function may have written to the line; the time must return within a second.
    const bool turnsBySecond = hasSeconds || m_lines.lower.Text() != TimeLine(m_parts.settings, now);
    const int step = isSeen && turnsBySecond ? kClockSecond : kClockMinute;
    if (WholeSteps(now, step) != WholeSteps(m_rememberedTime, step)) {
        return 1;  // it changed between the tick and this call
    }
    return step - now.msecsSinceStartOfDay() % step;
}

void ClockLines::RotateTick() {
    m_zoneLine = ZoneLine();
    QStringList texts = m_names;
    if (!m_zoneLine.isEmpty()) {
        texts.append(m_zoneLine);
    }
    if (texts.isEmpty()) {
        m_lines.upper.SetText(m_dateLine);
        return;
    }
    m_turn = m_turn < texts.size() ? m_turn + 1 : 0;
    m_lines.upper.ShowText(m_turn == 0 ? m_dateLine : texts[m_turn - 1]);
}

}  // namespace tickwell::displays
