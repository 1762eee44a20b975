// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "core/display.h"
#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/focus_return.h"
#include "core/ports/full_screen_watch.h"
#include "core/ports/power.h"
#include "core/ports/program_starter.h"
#include "core/ports/settings_store.h"
#include "core/ports/time_jumps.h"
#include "core/ports/timer.h"
#include "core/ports/tray.h"
#include "core/ports/window_stack.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "displays/chime.h"

class QWindow;

namespace tickwell::shell {

/// Functions that open the other windows. If one is empty, its menu items are disabled.
struct OtherWindows {
    std::function<void()> calendar;
    std::function<void()> settings;
    std::function<void()> help;
    std::function<void()> windowHelp = {};  ///< the help topic about the main window
    std::function<void()> about;
};

/// Makes all displays, in the order of the menu.
using DisplaysMaker = std::function<Displays(const DisplayView& view)>;

/// What the main window works with; all outlive it.
struct MainWindowParts {
    AppSettings& settings;
    FurtherSettings& further;
    SettingsStore& store;
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;
    const Power& power;
    Tray& tray;
    WindowStack& stack;
    FocusReturn& focus;
    FullScreenWatch& fullScreen;
    ProgramStarter& starter;
    ProgramFolder folder;
    Handlers& handlers;
    OtherWindows windows;
    DisplaysMaker makeDisplays;
    displays::Chime::Player playChime;
    /// Whether a Wayland compositor decides the position of the window, so that drags are handed over to it.
    bool isPlacedByCompositor = false;
    std::function<bool()> isComposited;  ///< whether translucent windows can be seen through
    /// Sets whether mouse events pass through a window to what is below it.
    std::function<void(QWindow& window, bool passes)> passClicks;
    std::function<void()> closed;  ///< called when the window has closed: settings saved, tray icon removed
};

}  // namespace tickwell::shell
