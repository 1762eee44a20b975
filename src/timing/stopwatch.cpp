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
    const auto end = qScopeGuard([this] { m_state.StopwatchRunning = false; });
    m_state.StopwatchElapsed = Reading();
    return m_state.StopwatchElapsed;
}

Stopwatch::Lap Stopwatch::TakeLap() {
    const Lap lap{CheckedAdd(m_state.StopwatchLapCount, 1), Reading()};
    m_state.StopwatchLapCount = lap.number;
    return lap;
}

void Stopwatch::Reset() {
    m_state = StopwatchState();
}

}  // namespace tickwell::timing
