// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/clock.h"

namespace tickwell::timing {

/// The state of the program's stopwatch; one instance. Times are in milliseconds, either ticks or elapsed
/// time.
struct StopwatchState {
    qint32 StopwatchStart = 0;    ///< tick of the last start
    qint32 StopwatchElapsed = 0;  ///< total of the completed runs (start to stop) since the last reset
    bool StopwatchRunning = false;
    qint32 StopwatchLapCount = 0;    ///< laps since the last reset
    qint32 StopwatchLapReading = 0;  ///< reading of the last of them; the next interval begins there
    QString StopwatchLapText;        ///< the list while its window is closed, lines separated by CR LF
};

/// The rules of the stopwatch. An overflow throws OverflowError and leaves the state unchanged, except that
/// Stop ends the run.
class Stopwatch {
public:
    /// Both outlive this object.
    Stopwatch(StopwatchState& state, const Clock& clock) : m_state(state), m_clock(clock) {}

    struct Lap {
        qint32 number;
        qint32 reading;  ///< measured from the start of the stopwatch, not from the previous lap
        qint32
            interval;  ///< measured from the previous lap or from the reset, without the time while stopped
    };

    bool IsRunning() const { return m_state.StopwatchRunning; }

    /// The current time in milliseconds; that of the last stop while it is stopped.
    qint32 Reading() const;

    /// Milliseconds during which Reading cannot overflow. Only while running.
    qint64 UntilOverflow() const;

    /// Only while stopped: continues from the current reading.
    void Start();
    /// Only while running. Returns the reading at the stop. If that overflows, the run is lost and the time
    /// before it is kept: a stopwatch that cannot be stopped could not be reset either. The next interval
    /// then begins at that time at the latest.
    qint32 Stop();
    /// Only while running.
    Lap TakeLap();
    /// Only while stopped: resets everything, including the kept list.
    void Reset();

    /// The list of laps and stops while no window shows it.
    const QString& KeptList() const { return m_state.StopwatchLapText; }
    void KeepList(const QString& list) { m_state.StopwatchLapText = list; }

private:
    StopwatchState& m_state;
    const Clock& m_clock;
};

}  // namespace tickwell::timing
