// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/handlers.h"
#include "core/ports/autostart.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/timer.h"
#include "core/settings.h"

namespace tickwell {

/// What the settings dialog asks of the rest of the program.
struct SettingsOperations {
    /// The settings have changed: the main window takes them over. Throws RunTimeError.
    std::function<void()> apply;
    /// Called with true after OK has applied: today's names and the date are looked up anew.
    std::function<void(bool)> refresh;
    /// Called with true while the dialog is open: nothing comes above it.
    std::function<void(bool)> holdKeepTop;
    /// Plays the sound of this name once. Empty: the button beside the sounds is disabled.
    std::function<void(const QString& soundName)> listen;
    /// Begins to compact the day database and returns; when that has ended the user is told, and `done`
    /// called. If it was begun before, only `done` is new. Empty: its button is disabled. Throws RunTimeError
    /// if it cannot begin; `done` is not called then.
    std::function<void(std::function<void()> done)> compact;
};

/// What the settings dialog works with; all outlive it.
struct SettingsParts {
    AppSettings& settings;
    FurtherSettings& further;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    HelpViewer& help;
    Autostart& autostart;
    SettingsOperations operations;
};

}  // namespace tickwell
