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

namespace tickwell {

DisplayPorts DisplayPortsOfThisMachine() {
    return {.power = std::make_shared<UPower>(), .memory = std::make_shared<ProcMemory>()};
}

Displays MakeDisplays(const DisplaysParts& parts, const DisplayView& view) {
    Handlers& handlers = parts.handlers;
    TimerSource& timers = parts.timers;
    const auto tools = std::make_shared<TimingTools>(parts.timing, view);
    Displays displays;
    displays.push_back(std::make_unique<ClockDisplay>(parts.settings, parts.clock, parts.dayDatabase,
                                                      handlers, timers, view));
    displays.push_back(std::make_unique<UsageDisplay>(parts.settings, parts.clock, handlers, timers, view));
    displays.push_back(std::make_unique<StopwatchDisplay>(tools));
    displays.push_back(std::make_unique<CountdownDisplay>(tools));
    displays.push_back(std::make_unique<BatteryDisplay>(*parts.ports.power, handlers, timers, view));
    displays.push_back(std::make_unique<MemoryDisplay>(*parts.ports.memory, handlers, timers, view));
    displays.push_back(
        std::make_unique<CdPlayerDisplay>(parts.cdPlayer, handlers, timers, view, parts.openCdPlayer));
    return displays;
}

}  // namespace tickwell
