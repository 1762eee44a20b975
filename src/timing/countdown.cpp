// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/countdown.h"

#include "core/integers.h"

namespace tickwell::timing {

namespace {

constexpr qint32 kInsteadOfZero = 15'000;  // ms

}  // namespace

qint32 Countdown::Remaining() const {
    // Subtracting the elapsed time keeps intermediate results in range; in another order one could overflow
    // although the remaining time fits.
    return CheckedSub(m_state.CountdownDuration, CheckedSub(m_clock.Tick(), m_state.CountdownStart));
}

qint32 Countdown::RemainingNow() const {
    if (m_state.CountdownRunning) {
        return Remaining();
    }
    const qint32 duration = m_state.CountdownDuration == 0 ? kInsteadOfZero : m_state.CountdownDuration;
    const bool paused = m_state.CountdownPausedAt != 0;
    return paused ? CheckedSub(duration, CheckedSub(m_state.CountdownPausedAt, m_state.CountdownStart))
                  : duration;
}

qint64 Countdown::UntilOverflow() const {
    return UntilTickTurns(m_clock.Tick());
}

bool Countdown::ReplaceZero() {
    const bool zero = m_state.CountdownDuration == 0;
    if (zero) {
        m_state.CountdownDuration = kInsteadOfZero;
    }
    return zero;
}

void Countdown::Start() {
    const qint32 now = m_clock.Tick();
    const bool paused = m_state.CountdownPausedAt != 0;
    m_state.CountdownStart =
        paused ? CheckedAdd(now, CheckedSub(m_state.CountdownStart, m_state.CountdownPausedAt)) : now;
    m_state.CountdownRunning = true;
    if (!paused) {
        m_state.CountdownName.clear();
    }
}

void Countdown::Stop() {
    m_state.CountdownRunning = false;
    m_state.CountdownPausedAt = m_clock.Tick();
}

void Countdown::Forget() {
    m_state.CountdownPausedAt = 0;
    m_state.CountdownStart = 0;
}

void Countdown::End() {
    m_state.CountdownRunning = false;
    Forget();
}

void Countdown::BeginNextCycle() {
    const qint32 start = CheckedAdd(m_state.CountdownStart, m_state.CountdownDuration);
    m_state.CountdownLoopCount = CheckedAdd(m_state.CountdownLoopCount, 1);
    m_state.CountdownStart = start;
}

}  // namespace tickwell::timing
