// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/ports/clock.h"
#include "core/settings.h"

namespace tickwell::displays {

/// The time signal: strikes the hour, 1 to 12 times, and once on the half hour.
class Chime {
public:
    /// Plays the sound of this name `count` times in a row.
    using Player = std::function<void(const QString& soundName, qint32 count)>;

    /// `clock` and `settings` outlive this object; settings are read at each tick.
    Chime(const Clock& clock, const AppSettings& settings, Player playChime)
        : m_clock(clock), m_settings(settings), m_playChime(std::move(playChime)) {}

    /// The tick of the main window's chime timer, which runs whatever is shown.
    void Timer3_Timer();

    /// Milliseconds until the next tick that has an effect.
    qint64 UntilDue() const;

private:
    const Clock& m_clock;
    const AppSettings& m_settings;
    Player m_playChime;
    bool ChimeDone = false;  ///< the current minute, 0 or 30, was handled
};

/// The number of strikes of the hour 0 to 23: 12 at noon and at midnight.
qint32 StrikesOf(qint32 hour);

}  // namespace tickwell::displays
