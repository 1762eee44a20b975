// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_desk.h"

#include <algorithm>

namespace tickwell::timing {

namespace {

// ms
constexpr int kDeskTick = 1;
constexpr int kLoadAfter = 1000;         // the first frame does not need the timers
constexpr int kMenuLook = 250;           // how often an open menu is checked again
constexpr qint64 kAgainAfter = 300'000;  // 「5分後にもう一度」
constexpr qint64 kTooLate = 600'000;     // an end that is older is told without a sound

}  // namespace

TimerDesk::TimerDesk(const TimerDeskParts& parts)
    : m_parts(parts),
      m_list(parts.clock, parts.store),
      m_panel(m_list, parts.countdown, parts.clock),
      m_timer(
          parts.handlers, parts.timers, kDeskTick, [this] { Tick(); }, [this] { return UntilDue(); }),
      m_start(parts.handlers.MakeTimer(parts.timers, kLoadAfter, [this] {
          m_start->Stop();
          if (m_parts.isStored()) {
              if (!m_isLoaded) {
                  Load();
              }
              m_parts.loaded();
          }
      })) {
    m_start->Start();
}

TimerDesk::~TimerDesk() {
    m_parts.sounds.stop();  // of a notice, or one that the user listens to
}

void TimerDesk::Load() {
    m_list.Load();
    m_isLoaded = true;
    Follow();
}

void TimerDesk::Show() {
    if (!m_isLoaded) {
        Load();
    }
    if (!m_form) {
        m_form = std::make_unique<TimersForm>(TimersWindowParts{.panel = m_panel,
                                                                .sounds = m_parts.sounds,
                                                                .timers = m_parts.timers,
                                                                .handlers = m_parts.handlers,
                                                                .help = m_parts.help,
                                                                .changed = [this] { Follow(); }},
                                              nullptr);
    }
    if (!m_form->isVisible()) {
        m_form->MakeRoom();
    }
    Place(*m_form);
    m_form->BringUp();
}

/// An open window stays where the user moved it.
void TimerDesk::Place(QWidget& window) const {
    if (!window.isVisible()) {
        m_parts.place(window);
    }
}

/// The timer runs while something will be due, and then as soon as that is.
void TimerDesk::Follow() {
    if (!m_list.UntilDue()) {
        m_timer.Stop();
    } else if (m_timer.IsRunning()) {
        m_timer.Wake();
    } else {
        m_timer.Start();
    }
}

void TimerDesk::TimeJumped() {
    if (!m_isLoaded) {
        return;
    }
    const QString failure = m_list.FollowClock();
    if (!failure.isEmpty()) {
        m_parts.handlers.Tell(failure);
    }
    m_timer.Wake();
}

qint64 TimerDesk::UntilDue() const {
    const qint64 untilDue = m_list.UntilDue().value_or(SleepingTimer::kLongestSleep);
    return untilDue <= 0 ? kMenuLook : untilDue;  // due already: a menu was open
}

void TimerDesk::Tick() {
    if (m_parts.isMenuOpen() && m_list.UntilDue().value_or(1) <= 0) {
        return;
    }
    const DueTimers due = m_list.TakeDue();
    if (!due.ends.isEmpty()) {
        Tell(due.ends);
    }
    if (!due.failure.isEmpty()) {
        m_parts.handlers.Tell(due.failure);
    }
    if (!m_list.UntilDue()) {
        m_timer.Stop();
    }
}

void TimerDesk::Tell(const QList<TimerEnd>& ends) {
    if (m_form && m_form->isVisible()) {
        m_form->RefreshForm();
    }
    if (!m_notice) {
        m_notice =
            std::make_unique<TimersNotice>(TimersNoticeParts{.handlers = m_parts.handlers,
                                                             .timers = m_parts.timers,
                                                             .tellAgain =
                                                                 [this](const QList<qint64>& ids) {
                                                                     m_list.TellAgain(ids, kAgainAfter);
                                                                     Follow();
                                                                 },
                                                             .closed = [this] { m_parts.sounds.stop(); }},
                                           nullptr);
    }
    Place(*m_notice);
    m_notice->Tell(ends);
    const auto heard =
        std::find_if(ends.rbegin(), ends.rend(), [](const TimerEnd& end) { return end.ago < kTooLate; });
    if (heard != ends.rend() && !m_parts.isSilent()) {
        m_parts.sounds.play(heard->sound);
    }
}

}  // namespace tickwell::timing
