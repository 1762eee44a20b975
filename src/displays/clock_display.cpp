// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/clock_display.h"

namespace tickwell::displays {

namespace {

// ms
constexpr int kTimeTick = 200;
constexpr int kDateTick = 10000;

constexpr DisplayTraits kClockTraits{.number = kFunctionClock,
                                     .menuItem = u"Menu3",
                                     .caption = u"ﾃﾞｼﾞﾀﾙ時計",
                                     .turnsWithSeconds = true,
                                     .roll = RollTraits{.caption = u"デジタル時計"}};

}  // namespace

ClockDisplay::ClockDisplay(const ClockParts& parts, Handlers& handlers, TimerSource& timers,
                           const DisplayView& view)
    : m_handlers(handlers),
      m_lines(parts, view.lines, [this] { m_dateTimer->Start(); }),
      m_timeTimer(
          handlers, timers, kTimeTick, [this] { Dz_Timer1_Timer(); },
          [this, isSeen = view.isSeen] { return m_lines.UntilDue(isSeen()); }),
      m_dateTimer(handlers.MakeTimer(timers, kDateTick, [this] { m_lines.RotateTick(); })) {}

const DisplayTraits& ClockDisplay::Traits() const {
    return kClockTraits;
}

void ClockDisplay::Show() {
    m_lines.Show();
    m_timeTimer.Start();
    m_dateTimer->Start();
}

void ClockDisplay::Hide() {
    m_timeTimer.Stop();
    m_dateTimer->Stop();
}

void ClockDisplay::Refresh() {
    m_lines.RaiseRefresh();
    m_timeTimer.Wake();
}

/// A failed look-up is reported separately, so that the time is still updated.
void ClockDisplay::Dz_Timer1_Timer() {
    m_handlers.Run([this] { m_lines.LookUp(); });
    m_lines.TimeTick();
}

}  // namespace tickwell::displays
