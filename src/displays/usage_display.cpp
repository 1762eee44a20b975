// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/usage_display.h"

namespace tickwell::displays {

namespace {

constexpr int kUsageTick = 250;  // ms

constexpr DisplayTraits kUsageTraits{.number = kFunctionUsage,
                                     .menuItem = u"Menu4",
                                     .caption = u"Windows時計",
                                     .title = u"Windows使用時間",
                                     .turnsWithSeconds = true,
                                     .roll = RollTraits{.caption = u"Windows時計"}};

}  // namespace

UsageDisplay::UsageDisplay(const UsageParts& parts, Handlers& handlers, TimerSource& timers,
                           const DisplayView& view)
    : m_lines(parts, view.lines),
      m_timer(
          handlers, timers, kUsageTick, [this] { m_lines.Tick(); },
          [this, isSeen = view.isSeen] { return UntilDue(isSeen()); }) {}

const DisplayTraits& UsageDisplay::Traits() const {
    return kUsageTraits;
}

void UsageDisplay::Show() {
    m_lines.Show();
    m_timer.Start();
}

qint64 UsageDisplay::UntilDue(bool isSeen) const {
    return isSeen ? m_lines.UntilDue() : SleepingTimer::kLongestSleep;
}

}  // namespace tickwell::displays
