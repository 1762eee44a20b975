// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/day_changes.h"
#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/message_boxes.h"
#include "core/settings.h"
#include "days/day_list.h"

namespace tickwell::book {

/// What the windows of the anniversary book use; all outlive them.
struct BookParts {
    store::DayDatabase& dayDatabase;
    const FurtherSettings& further;
    days::DayList& list;  ///< the calendar's list
    DayChanges& changes;
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    HelpViewer& help;
    TimerSource& timers;
};

}  // namespace tickwell::book
