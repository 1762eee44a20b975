// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "app/displays.h"
#include "app/media.h"
#include "app/media_keys.h"
#include "app/remote_access.h"
#include "core/ports/autostart.h"
#include "core/ports/calendar_helper.h"
#include "core/ports/desktop_notices.h"
#include "core/ports/do_not_disturb.h"
#include "core/ports/folder_watch.h"
#include "shell/main_window.h"

namespace tickwell::app {

/// The ports through which the program accesses the machine and its desktop; all outlive it.
struct ProgramPorts {
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;
    RealTimerSource& realTimers;
    MessageBoxes& boxes;
    Handlers& handlers;
    Tray& tray;
    WindowStack& stack;
    FocusReturn& focus;
    FullScreenWatch& fullScreen;
    ProgramStarter& starter;
    Autostart& autostart;
    Printer& printer;
    media::SoundOutput& sound;
    media::EventWait& wait;
    media::CdDrive& drive;
    media::CdPlayback& playback;
    remote::CommandService& commands;
    remote::PlayerService& mediaKeys;
    DoNotDisturb& doNotDisturb;
    DesktopNotices& notices;
    CalendarHelper& calendarHelper;
    DisplayPorts display;
    std::function<bool()> isComposited = [] {
        return true;
    };                                  ///< whether translucent windows can be seen through
    bool isPlacedByCompositor = false;  ///< whether the compositor of a Wayland session places the windows
    /// Sets whether mouse events pass through a window to what is below it.
    std::function<void(QWindow& window, bool passes)> passClicks = [](QWindow&, bool) {};
    /// Called whenever a window or menu was hidden, or a merge with other computers has ended.
    std::function<void()> windowGone = [] {};
    /// Makes a watch of a folder, if one is needed; null if folders cannot be watched.
    std::function<std::unique_ptr<FolderWatch>()> makeFolderWatch = [] { return nullptr; };
};

}  // namespace tickwell::app
