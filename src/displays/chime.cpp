// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/chime.h"

#include <utility>

namespace tickwell::displays {

namespace {

constexpr qint32 kHourAndHalfHour = 0;  // the modes as stored in the settings
constexpr qint32 kSilent = 2;
constexpr int kHalfHour = 30;  // minute
constexpr qint32 kDial = 12;
constexpr int kMinute = 60'000;  // ms

/// Whether the chime can strike in this minute.
bool HasTurn(QTime time) {
    return time.minute() == 0 || time.minute() == kHalfHour;
}

}  // namespace

void Chime::Timer3_Timer() {
    const QTime now = m_clock.Now().time();  // read once, so that hour and minute match
    if (!HasTurn(now)) {
        ChimeDone = false;
        return;
    }
    // Set first, in every mode: the minute is done even if the player fails or plays nothing.
    const bool isFirst = !std::exchange(ChimeDone, true);
    if (isFirst && now.minute() == 0 && m_settings.chimeMode != kSilent) {
        m_playChime(m_settings.chimeSound, StrikesOf(now.hour()));
    } else if (isFirst && now.minute() == kHalfHour && m_settings.chimeMode == kHourAndHalfHour) {
        m_playChime(m_settings.chimeSound, 1);
    }
}

/// If ChimeDone is set, the next minute resets it; otherwise the next hour or half hour strikes.
qint64 Chime::UntilDue() const {
    const QTime now = m_clock.Now().time();
    if (HasTurn(now) != ChimeDone) {
        return 1;  // the minute changed between the tick and this call
    }
    const int step = ChimeDone ? kMinute : kHalfHour * kMinute;
    return step - now.msecsSinceStartOfDay() % step;
}

qint32 StrikesOf(qint32 hour) {
    const qint32 strikes = hour % kDial;
    return strikes == 0 ? kDial : strikes;
}

}  // namespace tickwell::displays
