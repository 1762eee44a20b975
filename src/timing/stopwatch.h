// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/clock.h"

namespace tickwell {

/// The stopwatch of the program; one instance. Times are milliseconds, of the tick counter or of elapsed
/// time.
struct StopwatchState {
    qint32 StopwatchStart = 0;    ///< tick of the last start
    qint32 StopwatchElapsed = 0;  ///< all completed intervals since the last reset
    bool StopwatchRunning = false;
    qint32 StopwatchLapCount = 0;  ///< laps since the last reset
    QString StopwatchLapText;      ///< the list while its window is closed, lines parted by CR LF
};

/// What the stopwatch does. A sum that overflows throws OverflowError and leaves the state as it was, except
/// that Stop ends the run.
class Stopwatch {
public:
    /// Both outlive this object.
    Stopwatch(StopwatchState& state, const Clock& clock) : m_state(state), m_clock(clock) {}

    /// A lap is counted from the start of the stopwatch, not from the lap before.
    struct Lap {
        qint32 number;
        qint32 reading;
    };

    bool IsRunning() const { return m_state.StopwatchRunning; }

    /// Milliseconds at this moment; those of the last stop while it is stopped.
    qint32 Reading() const;

    /// Milliseconds, while it runs, for which Reading stays in order; an overflow may come with the next.
    qint64 UntilOverflow() const;

    /// While stopped: it goes on from its reading.
    void Start();
    /// While running. Returns the reading it stopped at. If that overflows, the run is lost and the time
    /// before it remains: a stopwatch that could not be stopped could not be reset either.
    qint32 Stop();
    /// While running.
    Lap TakeLap();
    /// While stopped: all back to the beginning, the kept list too.
    void Reset();

    /// The list of laps and stops while nothing shows it.
    const QString& KeptList() const { return m_state.StopwatchLapText; }
    void KeepList(const QString& list) { m_state.StopwatchLapText = list; }

private:
    StopwatchState& m_state;
    const Clock& m_clock;
};

}  // namespace tickwell
