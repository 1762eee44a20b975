// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_panel.h"

#include "core/duration_text.h"
#include "core/integers.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr qint32 kHour = 3'600'000;
constexpr qint32 kMinute = 60'000;
constexpr qint32 kSecond = 1000;

}  // namespace

TimerEntry TimerPanel::ReadEntries(const TimerEntry& entry) {
    m_countdown.SetDuration(Checked32(qint64{entry.hours} * kHour + qint64{entry.minutes} * kMinute +
                                      qint64{entry.seconds} * kSecond));
    m_countdown.SetRepeat(entry.repeat);
    TimerEntry taken = entry;
    if (m_countdown.ReplaceZero()) {
        taken.seconds = WholeSeconds(m_countdown.State().CountdownDuration);
    }
    m_lines.lower.SetText(ElapsedText(m_countdown.State().CountdownDuration));
    return taken;
}

TimerEntry TimerPanel::CurrentEntry() {
    m_countdown.ReplaceZero();
    const CountdownState& state = m_countdown.State();
    const qint32 duration = state.CountdownDuration;
    return {.hours = duration / kHour,
            .minutes = duration % kHour / kMinute,
            .seconds = WholeSeconds(duration % kMinute),
            .repeat = state.CountdownRepeat};
}

void TimerPanel::StartOrStop(const TimerEntry& entry) {
    if (IsRunning()) {
        m_countdownTimer.Stop();
        m_countdown.Stop();
        return;
    }
    ReadEntries(entry);
    m_countdown.Start();
    m_countdownTimer.Start();
}

void TimerPanel::StartNew(qint32 milliseconds, const QString& name) {
    m_countdown.Forget();
    m_countdown.SetDuration(milliseconds);
    m_countdown.SetRepeat(false);
    m_lines.upper.ShowText(name.isEmpty() ? u"タイマー"_s : name);
    m_lines.lower.SetText(ElapsedText(milliseconds));
    m_countdown.Start();
    m_countdown.SetName(name);
    m_countdownTimer.Start();
}

void TimerPanel::Reset(const TimerEntry& entry) {
    ReadEntries(entry);
    m_countdown.Forget();
    m_lines.upper.ShowText(u"タイマー"_s);
    m_lines.lower.ShowText(ElapsedText(m_countdown.State().CountdownDuration));
}

}  // namespace tickwell::timing
