// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/chime.h"

#include <utility>

namespace tickwell::displays {

namespace {

constexpr qint32 kHourAndHalfHour = 0;  // the modes, as the settings have them
constexpr qint32 kSilent = 2;
constexpr int kHalfHour = 30;  // minute
constexpr qint32 kDial = 12;
constexpr int kMinute = 60'000;  // ms

/// In these minutes there may be something to strike.
bool HasTurn(QTime time) {
    return time.minute() == 0 || time.minute() == kHalfHour;
}

}  // namespace

void Chime::Timer3_Timer() {
    const QTime now = m_clock.Now().time();  // one look: the hour and its minute belong together
    if (!HasTurn(now)) {
        ChimeDone = false;
        return;
    }
    // Said first, and whatever the mode: the minute has had its turn, even where the player fails or is
    // silent.
    const bool isFirst = !std::exchange(ChimeDone, true);
    if (isFirst && now.minute() == 0 && m_settings.chimeMode != kSilent) {
        m_playChime(m_settings.chimeSound, StrikesOf(now.hour()));
    } else if (isFirst && now.minute() == kHalfHour && m_settings.chimeMode == kHourAndHalfHour) {
        m_playChime(m_settings.chimeSound, 1);
    }
}

/// A minute that has had its turn is forgotten with the next minute, any other waits for the half hour.
qint64 Chime::UntilDue() const {
    const QTime now = m_clock.Now().time();
    if (HasTurn(now) != ChimeDone) {
        return 1;  // the minute turned between the tick and this question
    }
    const int step = ChimeDone ? kMinute : kHalfHour * kMinute;
    return step - now.msecsSinceStartOfDay() % step;
}

qint32 StrikesOf(qint32 hour) {
    const qint32 strikes = hour % kDial;
    return strikes == 0 ? kDial : strikes;
}

}  // namespace tickwell::displays
