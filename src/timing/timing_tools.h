// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/printer.h"
#include "core/sleeping_timer.h"
#include "timing/countdown_lines.h"
#include "timing/stopwatch_lines.h"
#include "timing/stopwatch_window.h"
#include "timing/temporary_texts.h"
#include "timing/timer_notice.h"
#include "timing/timer_window.h"

namespace tickwell {

/// What stopwatch and countdown work with; all outlive them.
struct TimingParts {
    StopwatchState& stopwatch;
    CountdownState& countdown;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    Printer& printer;
    HelpViewer& help;
    std::function<void()>
        enterFolder;  ///< makes the program's folder the current one, or throws RunTimeError
    /// Sends one multimedia command and tells the user itself when it fails.
    std::function<void(const QString& command)> sendCommand;
    std::function<void(QWidget& window)> place;  ///< puts a window that is about to be shown where it belongs
    QString version;                             ///< the program's, as "2.0.0"
};

/// The main window, as stopwatch and countdown see it; it outlives them.
struct TimingView {
    TextLines lines;
    DisplayFunctions& functions;
    std::function<qint64()> untilFrame = [] {
        return 1;
    };  ///< ms from one change of a line to the next that is seen
    /// A tool's window wrote to the lines of another function, whose timer may sleep.
    std::function<void()> linesWritten = [] {};
};

/// Stopwatch and countdown put together: rules, lines, the main window's two timers, and the windows, which
/// are made when they are first asked for.
class TimingTools : public TimerWindows {
public:
    TimingTools(const TimingParts& parts, const TimingView& view);

    Timer& Timer1() { return m_Timer1; }
    StopwatchLines& Reading() { return m_stopwatchLines; }
    CountdownLines& Rest() { return m_countdownLines; }

    /// The main window shows another function, or the same one anew.
    void FunctionChanged();

    /// Something has changed that may be due sooner than the timers know, for instance time itself.
    void Wake();

    /// The lines came into sight.
    void TickNow();

    /// Brings a running reading up to date between two ticks. Never throws: what fails is told by its tick.
    void BringUp();

    void ShowStopForm();
    void ShowTimerForm() override;
    void RefreshTimerForm() override;
    void ShowNotice() override;

    /// Closes the windows, the sound of the notice with them; the tools go on.
    void CloseWindows();

private:
    void PlaceIfClosed(QWidget& window) const;

    TimingParts m_parts;
    TimingView m_view;
    Stopwatch m_stopwatch;
    Countdown m_countdown;
    StopwatchLines m_stopwatchLines;
    CountdownLines m_countdownLines;
    SleepingTimer m_Timer1;
    SleepingTimer m_TimerTimer;
    TemporaryTexts m_temporaryTexts;
    StopwatchPanel m_stopwatchPanel;
    TimerPanel m_timerPanel;
    std::unique_ptr<StopForm> m_stopForm;  // null until they are first asked for
    std::unique_ptr<TimerForm> m_timerForm;
    std::unique_ptr<Form8> m_form8;
};

}  // namespace tickwell
