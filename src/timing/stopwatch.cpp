// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch.h"

#include <QScopeGuard>
#include <algorithm>

#include "core/integers.h"

namespace tickwell::timing {

qint32 Stopwatch::Reading() const {
    if (!m_state.StopwatchRunning) {
        return m_state.StopwatchElapsed;
    }
    // The difference first: in another order an intermediate result could overflow although the sum fits.
    return CheckedAdd(CheckedSub(m_clock.Tick(), m_state.StopwatchStart), m_state.StopwatchElapsed);
}

qint64 Stopwatch::UntilOverflow() const {
    return std::min(UntilTickTurns(m_clock.Tick()), (qint64{1} << 31) - Reading());
}

void Stopwatch::Start() {
    m_state.StopwatchStart = m_clock.Tick();
    m_state.StopwatchRunning = true;
}

qint32 Stopwatch::Stop() {
    const auto end = qScopeGuard([this] {
        m_state.StopwatchRunning = false;
        m_state.StopwatchLapReading = std::min(m_state.StopwatchLapReading, m_state.StopwatchElapsed);
    });
    m_state.StopwatchElapsed = Reading();
    return m_state.StopwatchElapsed;
}

Stopwatch::Lap Stopwatch::TakeLap() {
    const qint32 number = CheckedAdd(m_state.StopwatchLapCount, 1);
    const qint32 reading = Reading();
    // Not checked: a lap with a valid reading counts, whatever the interval.
    const auto interval = static_cast<qint32>(TicksSince(m_state.StopwatchLapReading, reading));
    m_state.StopwatchLapCount = number;
    m_state.StopwatchLapReading = reading;
    return {number, reading, interval};
}

void Stopwatch::Reset() {
    m_state = StopwatchState();
}

}  // namespace tickwell::timing
