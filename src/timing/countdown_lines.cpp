// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/countdown_lines.h"

#include <algorithm>

#include "core/duration_text.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

void CountdownLines::Show() {
    m_countdown.SetShownOnMain(true);
    const CountdownState& state = m_countdown.State();
    if (!state.CountdownRunning) {
        m_windows.ShowTimerForm();
        m_countdown.Forget();  // only while it is stopped: a running one would end at once
    }
    m_countdown.ReplaceZero();
    m_lines.lower.ShowText(ElapsedText(state.CountdownDuration));
}

void CountdownLines::Tick(Timer& timer) {
    const CountdownState& state = m_countdown.State();
    const qint32 remaining = m_countdown.Remaining();
    if (state.TimerShownOnMain) {
        m_lines.lower.SetText(ElapsedText(std::max(0, remaining)));
    }
    if (remaining >= 1) {
        return;
    }
    if (state.CountdownRepeat) {
        BeginNextCycle();
    } else {
        EndRun(timer);
    }
    m_windows.ShowNotice();
}

void CountdownLines::BringUp() {
    const CountdownState& state = m_countdown.State();
    if (!state.CountdownRunning || !state.TimerShownOnMain) {
        return;
    }
    // In the millisecond in which a cycle begins, the zero of the last one is kept.
    const qint32 remaining = m_countdown.Remaining();
    if (remaining < state.CountdownDuration) {
        m_lines.lower.SetText(ElapsedText(std::max(0, remaining)));
    }
}

qint64 CountdownLines::UntilDue(qint64 untilFrame) const {
    const CountdownState& state = m_countdown.State();
    const qint64 untilZero = std::min(qint64{m_countdown.Remaining()}, m_countdown.UntilOverflow());
    return state.TimerShownOnMain ? std::min(untilFrame, untilZero) : untilZero;
}

void CountdownLines::EndRun(Timer& timer) {
    const CountdownState& state = m_countdown.State();
    if (state.TimerShownOnMain) {
        m_lines.upper.ShowText(u"指定の時間が経過しました"_s);
    }
    timer.Stop();
    if (state.TimerShownOnMain) {
        m_windows.ShowTimerForm();
    }
    m_countdown.End();
    if (state.TimerShownOnMain) {
        m_lines.lower.ShowText(ElapsedText(state.CountdownDuration));
    }
    m_windows.RefreshTimerForm();  // even if not shown: an open form would still offer to stop it
}

void CountdownLines::BeginNextCycle() {
    m_countdown.BeginNextCycle();
    const CountdownState& state = m_countdown.State();
    if (state.TimerShownOnMain) {
        m_lines.upper.ShowText(u"ループ "_s + QString::number(state.CountdownLoopCount) + u"回目です");
    }
}

}  // namespace tickwell::timing
