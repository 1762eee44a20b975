// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_sound.h"

#include <algorithm>

namespace tickwell::timing {

namespace {

// ms
constexpr qint64 kSoundSecond = 1000;
constexpr qint64 kShortestRepeat = 1000;  // a shorter sound would be a buzz

}  // namespace

AlarmSound::AlarmSound(const TimerSounds& sounds, const Clock& clock, TimerSource& timers, Handlers& handlers)
    : m_sounds(sounds),
      m_clock(clock),
      m_repeat(handlers.MakeTimer(timers, static_cast<int>(kShortestRepeat), [this] { PlayOn(); })) {}

void AlarmSound::Ring(const QString& file, int seconds) {
    m_file = file;
    m_length = std::max(m_sounds.length(file), kShortestRepeat);
    m_endsAt = m_clock.SinceBoot() + seconds * kSoundSecond;
    PlayOn();
}

void AlarmSound::PlayOn() {
    const qint64 left = m_endsAt - m_clock.SinceBoot();
    if (left <= 0) {
        return Stop();
    }
    m_repeat->SetInterval(static_cast<int>(std::min(m_length, left)));
    m_repeat->Start();
    m_sounds.play(m_file);
}

void AlarmSound::Stop() {
    if (m_repeat->IsRunning()) {
        m_repeat->Stop();
        m_sounds.stop();
    }
}

}  // namespace tickwell::timing
