// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/ports/clock.h"
#include "core/settings.h"

namespace tickwell::displays {

/// The time signal: the hour on a dial of twelve, and once on the half hour.
class Chime {
public:
    /// Plays the sound of this name so many times in a row.
    using Player = std::function<void(const QString& soundName, qint32 count)>;

    /// `clock` and `settings` outlive this object; settings are read at each tick.
    Chime(const Clock& clock, const AppSettings& settings, Player playChime)
        : m_clock(clock), m_settings(settings), m_playChime(std::move(playChime)) {}

    /// Each second, whatever is shown, from the load of the main window to its end.
    void Timer3_Timer();

    /// Milliseconds until the next tick that finds its turn.
    qint64 UntilDue() const;

private:
    const Clock& m_clock;
    const AppSettings& m_settings;
    Player m_playChime;
    bool ChimeDone = false;  ///< the minute 0 or 30 that it is has had its turn
};

/// How often the hour 0 to 23 is struck: 12 at noon and at midnight.
qint32 StrikesOf(qint32 hour);

}  // namespace tickwell::displays
