// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_player_display.h"

#include <utility>

namespace tickwell::media {

namespace {

constexpr int kCdTick = 500;  // ms

constexpr DisplayTraits kCdPlayerTraits{
    .number = kFunctionCd, .menuItem = u"Menu9", .caption = u"CDﾌﾟﾚｰﾔｰ", .hasOperationItem = true};

}  // namespace

CdPlayerDisplay::CdPlayerDisplay(CdPlayer& player, Handlers& handlers, TimerSource& timers,
                                 const DisplayView& view, std::function<void()> openWindow)
    : m_lines(player, view.lines, view.functions),
      m_timer(
          handlers, timers, kCdTick, [this] { m_lines.Tick(); },
          [this, isSeen = view.isSeen] { return UntilDue(isSeen()); }),
      m_openWindow(std::move(openWindow)) {}

const DisplayTraits& CdPlayerDisplay::Traits() const {
    return kCdPlayerTraits;
}

void CdPlayerDisplay::Show() {
    m_lines.Show();
    m_timer.Start();
}

qint64 CdPlayerDisplay::UntilDue(bool isSeen) const {
    return isSeen ? kCdTick : SleepingTimer::kLongestSleep;
}

}  // namespace tickwell::media
