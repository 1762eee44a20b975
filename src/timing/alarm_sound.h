// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/timer.h"
#include "timing/timer_sounds.h"

namespace tickwell::timing {

/// The sound of an alarm, repeated for the alarm's time.
class AlarmSound {
public:
    /// All outlive this object.
    AlarmSound(const TimerSounds& sounds, const Clock& clock, TimerSource& timers, Handlers& handlers);

    /// Plays a sound again and again for that many seconds; ends the one before.
    void Ring(const QString& file, int seconds);
    void Stop();

private:
    void PlayOn();

    const TimerSounds& m_sounds;
    const Clock& m_clock;
    QString m_file;
    qint64 m_length = 0;              // ms
    qint64 m_endsAt = 0;              // ms since boot
    std::unique_ptr<Timer> m_repeat;  // runs while it rings
};

}  // namespace tickwell::timing
