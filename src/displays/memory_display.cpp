// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/memory_display.h"

namespace tickwell::displays {

namespace {

constexpr int kMemoryTick = 2000;  // ms

constexpr DisplayTraits kMemoryTraits{.number = kFunctionMemory,
                                      .menuItem = u"Menu8",
                                      .caption = u"ﾒﾓﾘｰ監視",
                                      .title = u"メモリー使用率",
                                      .hasOperationItem = true,  // the display has no window
                                      .roll = RollTraits{.caption = u"メモリー監視"}};

}  // namespace

MemoryDisplay::MemoryDisplay(const Memory& memory, Handlers& handlers, TimerSource& timers,
                             const DisplayView& view)
    : m_lines(memory, view.lines),
      m_timer(
          handlers, timers, kMemoryTick, [this] { m_lines.Tick(); },
          [this, isSeen = view.isSeen] { return UntilDue(isSeen()); }) {}

const DisplayTraits& MemoryDisplay::Traits() const {
    return kMemoryTraits;
}

void MemoryDisplay::Show() {
    m_lines.Show();
    m_timer.Start();
}

qint64 MemoryDisplay::UntilDue(bool isSeen) const {
    return isSeen ? kMemoryTick : SleepingTimer::kLongestSleep;
}

}  // namespace tickwell::displays
