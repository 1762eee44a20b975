// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/reading_announcer.h"

#include <utility>

namespace tickwell::shell {

namespace {

constexpr int kPace = 5000;  // ms

}  // namespace

ReadingAnnouncer::ReadingAnnouncer(Parts parts, const Clock& clock, TimerSource& timers)
    : m_parts(std::move(parts)), m_pace(clock, timers, kPace, [this] { Announce(); }) {}

void ReadingAnnouncer::LineChanged() {
    if (m_parts.isHeard()) {
        m_pace.Request();
    }
}

void ReadingAnnouncer::Ask() {
    if (m_parts.isHeard()) {
        m_isAsked = true;
        m_pace.RunNow();
    }
}

void ReadingAnnouncer::Announce() {
    const bool isAsked = std::exchange(m_isAsked, false);
    if (!m_parts.isHeard()) {
        return;
    }
    const QString text = m_parts.read();
    if (isAsked || text != m_said) {
        m_said = text;
        m_parts.say(text);
    }
}

}  // namespace tickwell::shell
