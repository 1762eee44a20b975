// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/battery_display.h"

namespace tickwell::displays {

namespace {

constexpr int kBatteryTick = 10000;  // ms

constexpr DisplayTraits kBatteryTraits{
    .number = kFunctionBattery,
    .menuItem = u"Menu7",
    .caption = u"ﾊﾞｯﾃﾘｰ監視",
    .title = u"バッテリー残量",
    .roll = RollTraits{.caption = u"バッテリー監視（AC電源時は無効）", .isSkippedOnMains = true}};

}  // namespace

BatteryDisplay::BatteryDisplay(const Power& power, Handlers& handlers, TimerSource& timers,
                               const DisplayView& view)
    : m_lines(power, view.lines),
      m_timer(handlers.MakeTimer(timers, kBatteryTick, [this] { m_lines.Refresh(); })) {}

const DisplayTraits& BatteryDisplay::Traits() const {
    return kBatteryTraits;
}

void BatteryDisplay::Show() {
    m_lines.Refresh();  // at once: the first tick comes only after ten seconds
    m_timer->Start();
}

void BatteryDisplay::Hide() {
    m_timer->Stop();
    m_lines.Hide();
}

qint64 BatteryDisplay::UntilDue(bool /*isSeen*/) const {
    return kBatteryTick;
}

}  // namespace tickwell::displays
