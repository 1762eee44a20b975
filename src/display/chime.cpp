// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/chime.h"

#include <utility>

namespace tickwell {

namespace {

constexpr qint32 kHourAndHalfHour = 0;  // the modes, as the settings have them
constexpr qint32 kSilent = 2;
constexpr int kHalfHour = 30;  // minute
constexpr qint32 kDial = 12;

}  // namespace

void Chime::Timer3_Timer() {
    const QTime now = m_clock.Now().time();  // one look: the hour and its minute belong together
    if (now.minute() != 0 && now.minute() != kHalfHour) {
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

qint32 StrikesOf(qint32 hour) {
    const qint32 strikes = hour % kDial;
    return strikes == 0 ? kDial : strikes;
}

}  // namespace tickwell
