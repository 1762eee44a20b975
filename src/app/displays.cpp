// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/displays.h"

#include "displays/battery_display.h"
#include "displays/clock_display.h"
#include "displays/memory_display.h"
#include "displays/usage_display.h"
#include "media/cd_player_display.h"
#include "platform/power/proc_memory.h"
#include "platform/power/upower.h"
#include "timing/timing_displays.h"

namespace tickwell::app {

DisplayPorts DisplayPortsOfThisMachine() {
    return {.power = std::make_shared<platform::UPower>(),
            .memory = std::make_shared<platform::ProcMemory>()};
}

Displays MakeDisplays(const DisplaysParts& parts, const DisplayView& view) {
    Handlers& handlers = parts.handlers;
    TimerSource& timers = parts.timers;
    const auto tools = std::make_shared<timing::TimingTools>(parts.timing, view);
    parts.timingMade(*tools);
    Displays displays;
    const displays::ClockParts clock{
        .settings = parts.settings, .clock = parts.clock, .announcements = parts.announcements};
    displays.push_back(std::make_unique<displays::ClockDisplay>(clock, handlers, timers, view));
    const displays::UsageParts usage{
        .settings = parts.settings, .further = parts.further, .clock = parts.clock};
    displays.push_back(std::make_unique<displays::UsageDisplay>(usage, handlers, timers, view));
    displays.push_back(std::make_unique<timing::StopwatchDisplay>(tools));
    displays.push_back(std::make_unique<timing::CountdownDisplay>(tools));
    displays.push_back(
        std::make_unique<displays::BatteryDisplay>(*parts.ports.power, handlers, timers, view));
    displays.push_back(
        std::make_unique<displays::MemoryDisplay>(*parts.ports.memory, handlers, timers, view));
    displays.push_back(
        std::make_unique<media::CdPlayerDisplay>(parts.cdPlayer, handlers, timers, view, parts.openCdPlayer));
    return displays;
}

}  // namespace tickwell::app
