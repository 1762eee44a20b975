// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timing_tools.h"

namespace tickwell {

namespace {

constexpr int kTick = 1;  // ms: the last digit is seen to run

}  // namespace

TimingTools::TimingTools(const TimingParts& parts, const TimingView& view)
    : m_parts(parts),
      m_view(view),
      m_stopwatch(parts.stopwatch, parts.clock),
      m_countdown(parts.countdown, parts.clock),
      m_stopwatchLines(m_stopwatch, view.lines),
      m_countdownLines(m_countdown, view.lines, *this),
      m_Timer1(parts.handlers.MakeTimer(parts.timers, kTick, [this] { m_stopwatchLines.Tick(); })),
      m_TimerTimer(
          parts.handlers.MakeTimer(parts.timers, kTick, [this] { m_countdownLines.Tick(*m_TimerTimer); })),
      m_stopwatchPanel(m_stopwatch, view.lines, view.functions, *m_Timer1),
      m_timerPanel(m_countdown, view.lines, *m_TimerTimer) {}

void TimingTools::ShowStopForm() {
    if (m_stopForm == nullptr) {
        m_stopForm = new StopForm({m_stopwatchPanel, m_parts.clock, m_parts.handlers, m_parts.boxes,
                                   m_parts.printer, m_parts.help, m_parts.enterFolder, m_parts.version},
                                  m_view.window);
    }
    OpenPlaced(*m_stopForm, [this] { m_stopForm->Open(); });
}

void TimingTools::ShowTimerForm() {
    if (m_timerForm == nullptr) {
        m_timerForm = new TimerForm({m_timerPanel, m_parts.handlers, m_parts.help}, m_view.window);
    }
    OpenPlaced(*m_timerForm, [this] { m_timerForm->Open(); });
}

void TimingTools::RefreshTimerForm() {
    if (m_timerForm != nullptr && m_timerForm->isVisible()) {
        m_timerForm->RefreshForm();
    }
}

void TimingTools::ShowNotice() {
    if (m_form8 == nullptr) {
        m_form8 = new Form8({m_parts.handlers, m_parts.enterFolder, m_parts.sendCommand}, m_view.window);
    }
    OpenPlaced(*m_form8, [this] { m_form8->Open(); });
}

/// Only a window that was closed is placed: an open one stays where the user put it.
void TimingTools::OpenPlaced(QWidget& window, const std::function<void()>& open) {
    if (!window.isVisible()) {
        m_parts.place(window);
    }
    open();
}

void TimingTools::CloseWindows() {
    for (QWidget* window : {static_cast<QWidget*>(m_stopForm), static_cast<QWidget*>(m_timerForm),
                            static_cast<QWidget*>(m_form8)}) {
        if (window != nullptr && window->isVisible()) {
            window->close();
        }
    }
}

}  // namespace tickwell
