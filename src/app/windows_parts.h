// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "app/chosen_holidays.h"
#include "core/handlers.h"
#include "core/ports/autostart.h"
#include "core/ports/calendar_helper.h"
#include "core/ports/clock.h"
#include "core/ports/desktop_notices.h"
#include "core/ports/message_boxes.h"
#include "core/ports/program_starter.h"
#include "core/ports/timer.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "media/cd_player.h"
#include "settings_ui/settings_parts.h"
#include "store/day_database.h"

namespace tickwell::app {

/// What the windows work with; all outlive them.
struct WindowsParts {
    store::DayDatabase& dayDatabase;
    ChosenHolidays& holidays;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    DesktopNotices& notices;
    CalendarHelper& calendarHelper;
    ProgramStarter& programs;
    Autostart& autostart;
    AppSettings& settings;
    FurtherSettings& further;
    ProgramFolder folder;
    media::CdPlayer& cdPlayer;
    std::function<void(const QString& soundName, qint32 volume)> listen;  ///< plays a sound once
    std::function<bool()> isComposited;  ///< whether translucent windows can be seen through
    bool isPlacedByCompositor;           ///< where windows appear is the desktop's choice alone
    std::function<bool()> hasTray;       ///< whether the desktop has a notification area
    std::function<void()> gone;          ///< called whenever a window or menu was hidden
    std::function<void()> applied;       ///< called when the settings have changed
    std::function<void()> closeTools;    ///< as in BackupDeskParts
    std::function<void()> openTools;
    settings_ui::SyncOperations sync;
};

}  // namespace tickwell::app
