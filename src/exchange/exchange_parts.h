// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "core/day_changes.h"
#include "core/handlers.h"
#include "core/ports/calendar_helper.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/message_boxes.h"
#include "core/ports/timer.h"
#include "core/settings.h"
#include "days/holiday_source.h"
#include "store/day_database.h"

namespace tickwell::exchange {

inline constexpr int kHelpExchange = 54;  ///< topic of the help

/// What the windows for files of anniversaries use; all outlive them.
struct ExchangeParts {
    store::DayDatabase& dayDatabase;
    const days::HolidaySource& holidays;
    const FurtherSettings& further;
    DayChanges& changes;
    CalendarHelper& helper;
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    HelpViewer& help;
    TimerSource& timers;
    std::function<void()> imported;  ///< called after anniversaries were stored
};

}  // namespace tickwell::exchange
