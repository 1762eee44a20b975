// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timing_tools.h"

#include <QScopeGuard>
#include <algorithm>

#include "timing/log.h"

namespace tickwell::timing {

namespace {

constexpr int kTick = 1;  // ms, for exact start and end; in between, each timer's due time decides

}  // namespace

TimingTools::TimingTools(const TimingParts& parts, const DisplayView& view)
    : m_parts(parts),
      m_view(view),
      m_stopwatch(parts.stopwatch, parts.clock),
      m_countdown(parts.countdown, parts.clock),
      m_stopwatchLines(m_stopwatch, view.lines),
      m_countdownLines(m_countdown, view.lines, *this),
      m_stopwatchTimer(
          parts.handlers, parts.timers, kTick, [this] { m_stopwatchLines.Tick(); },
          [this] { return UntilReadingDue(); }),
      m_countdownTimer(
          parts.handlers, parts.timers, kTick, [this] { m_countdownLines.Tick(m_countdownTimer); },
          [this] { return UntilCountdownDue(); }),
      m_temporaryTexts(view.lines, view.functions, parts.timers,
                       [this] {
                           m_stopwatchTimer.Wake();
                           m_view.linesWritten();
                       }),
      m_stopwatchPanel({.stopwatch = m_stopwatch,
                        .lines = m_temporaryTexts.ForStopwatch(),
                        .functions = view.functions,
                        .readingTimer = m_stopwatchTimer,
                        .further = parts.further}),
      m_timerPanel(m_countdown, m_temporaryTexts.ForTimer(), m_countdownTimer) {}

void TimingTools::BringUp() {
    try {
        if (m_stopwatchTimer.IsRunning()) {
            m_stopwatchLines.Tick();
        }
        m_countdownLines.BringUp();
    } catch (const RunTimeError& error) {
        // The reading stays unchanged.
        qCWarning(TimingLog).noquote() << "no reading for a screen reader:" << error.Detail();
    }
}

void TimingTools::StartOrStopStopwatch() {
    const auto follow = qScopeGuard([this] { FollowStopwatch(); });  // even a failed stop changes the state
    m_stopwatchPanel.StartOrStop();
}

void TimingTools::LapOrResetStopwatch() {
    m_stopwatchPanel.LapOrReset();
    FollowStopwatch();
}

/// A window opened later loads the list that is kept here.
void TimingTools::FollowStopwatch() {
    m_stopwatchPanel.Unload();
    if (m_stopForm) {
        m_stopForm->Refresh();
    }
}

void TimingTools::StartCountdown(qint32 milliseconds, const QString& name) {
    m_timerPanel.StartNew(milliseconds, name);
    RefreshTimerForm();
}

TimerPhase TimingTools::Phase() const {
    const CountdownState& state = m_countdown.State();
    if (state.CountdownRunning) {
        return TimerPhase::Running;
    }
    return state.CountdownPausedAt != 0 ? TimerPhase::Paused : TimerPhase::Idle;
}

qint64 TimingTools::Remaining() const {
    return std::max<qint64>(0, m_countdown.RemainingNow());
}

/// The entry is the set time, which the window of the countdown shows too.
void TimingTools::StartOrStop() {
    m_timerPanel.StartOrStop(m_timerPanel.CurrentEntry());
    RefreshTimerForm();
}

void TimingTools::Reset() {
    m_timerPanel.Reset(m_timerPanel.CurrentEntry());
    RefreshTimerForm();
}

void TimingTools::ShowStopForm() {
    if (!m_stopForm) {
        m_stopForm = std::make_unique<StopForm>(StopwatchWindowParts{.panel = m_stopwatchPanel,
                                                                     .further = m_parts.further,
                                                                     .clock = m_parts.clock,
                                                                     .handlers = m_parts.handlers,
                                                                     .boxes = m_parts.boxes,
                                                                     .printer = m_parts.printer,
                                                                     .help = m_parts.help,
                                                                     .enterFolder = m_parts.enterFolder,
                                                                     .version = m_parts.version},
                                                nullptr);
    }
    m_stopForm->MakeRoom();
    PlaceIfClosed(*m_stopForm);
    m_stopForm->BringUp();
}

void TimingTools::ShowTimerForm() {
    if (!m_timerForm) {
        m_timerForm = std::make_unique<TimerForm>(TimerWindowParts{.panel = m_timerPanel,
                                                                   .handlers = m_parts.handlers,
                                                                   .help = m_parts.help,
                                                                   .openList = m_parts.openTimers,
                                                                   .openAlarms = m_parts.openAlarms},
                                                  nullptr);
    }
    PlaceIfClosed(*m_timerForm);
    m_timerForm->BringUp();
}

void TimingTools::RefreshTimerForm() {
    if (m_timerForm && m_timerForm->isVisible()) {
        m_timerForm->RefreshForm();
    }
}

void TimingTools::ShowNoticeOf(const QString& name) {
    if (!m_notice) {
        m_notice = std::make_unique<Form8>(
            TimerNoticeParts{.handlers = m_parts.handlers,
                             .enterFolder = m_parts.enterFolder,
                             .sendCommand = m_parts.sendCommand,
                             .isSilent = m_parts.isSilent,
                             .name = [this] { return m_noticeName; },
                             .timers = m_parts.timers,
                             .ignoresFirstKeys = [this] { return m_parts.further.notices.tellsCountdown; },
                             .closed = m_parts.noticeClosed},
            nullptr);
    }
    if (!m_notice->isVisible()) {
        m_noticeName = name;
    }
    PlaceIfClosed(*m_notice);
    if (m_notice->BringUp()) {
        m_parts.noticeOpened(name);
    }
}

void TimingTools::CloseNotice() {
    if (m_notice) {
        m_notice->close();
    }
}

/// A window that is open stays where the user has moved it.
void TimingTools::PlaceIfClosed(QWidget& window) const {
    if (!window.isVisible()) {
        m_parts.place(window);
    }
}

void TimingTools::CloseWindows() {
    for (QWidget* window : {static_cast<QWidget*>(m_stopForm.get()), static_cast<QWidget*>(m_timerForm.get()),
                            static_cast<QWidget*>(m_notice.get())}) {
        if (window != nullptr) {
            window->close();
        }
    }
}

}  // namespace tickwell::timing
