// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/display.h"
#include "core/handlers.h"
#include "core/sleeping_timer.h"
#include "timing/countdown_lines.h"
#include "timing/main_countdown.h"
#include "timing/stopwatch_lines.h"
#include "timing/stopwatch_window.h"
#include "timing/temporary_texts.h"
#include "timing/timer_notice.h"
#include "timing/timer_window.h"
#include "timing/timing_parts.h"

namespace tickwell::timing {

/// Stopwatch and countdown combined: rules, lines, the main window's two timers, and the windows, which are
/// created on first use.
class TimingTools : public TimerWindows, public MainCountdown {
public:
    TimingTools(const TimingParts& parts, const DisplayView& view);

    SleepingTimer& Timer1() { return m_stopwatchTimer; }
    SleepingTimer& TimerTimer() { return m_countdownTimer; }
    StopwatchLines& Reading() { return m_stopwatchLines; }
    CountdownLines& Rest() { return m_countdownLines; }

    /// Milliseconds until the next timer tick that shows something new.
    qint64 UntilReadingDue() const { return m_stopwatchLines.UntilDue(m_view.untilFrame()); }
    qint64 UntilCountdownDue() const { return m_countdownLines.UntilDue(m_view.untilFrame()); }

    /// To be called when another display takes over the lines: a temporary text no longer restores the text
    /// that it replaced.
    void ForgetTemporaryTexts() { m_temporaryTexts.Forget(); }

    /// Updates a running reading between two ticks. Never throws: the next tick reports the error.
    void BringUp();

    // The following functions serve other programs. The windows show the result, whether they are open or
    // opened later.

    bool IsStopwatchRunning() const { return m_stopwatch.IsRunning(); }
    /// The stopwatch's current reading and that of the last lap, in ms. Throws OverflowError.
    qint32 StopwatchReading() const { return m_stopwatch.Reading(); }
    qint32 LapReading() const { return m_parts.stopwatch.StopwatchLapReading; }
    /// The actions of the stopwatch window's buttons; see StopwatchPanel.
    void StartOrStopStopwatch();
    void LapOrResetStopwatch();
    bool IsCountdownRunning() const { return m_timerPanel.IsRunning(); }
    /// See TimerPanel::StartNew.
    void StartCountdown(qint32 milliseconds, const QString& name);

    // The row of the countdown in the list of timers.
    TimerPhase Phase() const override;
    qint64 Remaining() const override;
    void StartOrStop() override;
    void Reset() override;

    /// To be called when the clock was set or the machine has slept.
    void TimeJumped() { m_parts.timeJumped(); }

    void ShowStopForm();
    void ShowTimerForm() override;
    void RefreshTimerForm() override;
    void ShowNotice() override { ShowNoticeOf(m_countdown.State().CountdownName); }
    /// The same for a run with this name. CloseNotice does what the notice's button does.
    void ShowNoticeOf(const QString& name);
    void CloseNotice();

    /// Closes the windows, which also stops the sound of the notice; the tools continue.
    void CloseWindows();

private:
    void FollowStopwatch();
    void PlaceIfClosed(QWidget& window) const;

    TimingParts m_parts;
    DisplayView m_view;
    Stopwatch m_stopwatch;
    Countdown m_countdown;
    StopwatchLines m_stopwatchLines;
    CountdownLines m_countdownLines;
    SleepingTimer m_stopwatchTimer;
    SleepingTimer m_countdownTimer;
    TemporaryTexts m_temporaryTexts;
    StopwatchPanel m_stopwatchPanel;
    TimerPanel m_timerPanel;
    std::unique_ptr<StopForm> m_stopForm;  // null until first used
    std::unique_ptr<TimerForm> m_timerForm;
    std::unique_ptr<Form8> m_notice;
    QString m_noticeName;
};

}  // namespace tickwell::timing
