// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/display.h"
#include "core/ports/memory.h"
#include "core/ports/power.h"
#include "core/settings.h"
#include "days/announced_names.h"
#include "media/cd_player.h"
#include "timing/timing_tools.h"

namespace tickwell::app {

/// Ports that report the machine's state to the displays and the roll. Neither pointer is null.
struct DisplayPorts {
    std::shared_ptr<const Power> power;
    std::shared_ptr<const Memory> memory;
};

/// The ports of the machine that the program runs on.
DisplayPorts DisplayPortsOfThisMachine();

/// What the displays work with; all outlive them.
struct DisplaysParts {
    DisplayPorts ports;
    const AppSettings& settings;
    const FurtherSettings& further;
    days::AnnouncementParts announcements;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    timing::TimingParts timing;
    media::CdPlayer& cdPlayer;
    std::function<void()> openCdPlayer;  ///< opens the player's window
    /// Called with stopwatch and countdown, which live as long as their displays.
    std::function<void(timing::TimingTools& tools)> timingMade = [](timing::TimingTools&) {};
};

/// The displays of the program, in the order of the menu and of the roll. A new display is added here.
Displays MakeDisplays(const DisplaysParts& parts, const DisplayView& view);

}  // namespace tickwell::app
