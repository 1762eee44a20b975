// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <QTemporaryDir>

#include "app/folder_setup.h"
#include "app/running_program.h"
#include "app/watched_drive.h"
#include "platform/time/virtual_time.h"
#include "support/borrowed.h"
#include "support/discs.h"
#include "support/fake_autostart.h"
#include "support/fake_calendar_helper.h"
#include "support/fake_command_service.h"
#include "support/fake_desktop_notices.h"
#include "support/fake_do_not_disturb.h"
#include "support/fake_event_wait.h"
#include "support/fake_focus_return.h"
#include "support/fake_full_screen_watch.h"
#include "support/fake_memory.h"
#include "support/fake_message_boxes.h"
#include "support/fake_player_service.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_program_starter.h"
#include "support/fake_settings_store.h"
#include "support/fake_sound_output.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"
#include "support/files.h"
#include "support/watched_drive.h"
#include "support/window.h"

namespace tickwell::app {

inline constexpr int kStartUp = 11'000;  // ms until the stored function starts

/// The complete program in its own folder, 15 seconds before nine in the evening.
struct RunningBench {
    QTemporaryDir dir;
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(20, 59, 45)), 307'000};
    RealTimerSource realTime{time};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakePower power;
    FakeMemory memory;
    FakeTray tray;
    FakeWindowStack stack;
    FakeFocusReturn focus;
    FakeFullScreenWatch fullScreen;
    FakeProgramStarter starter;
    FakeAutostart autostart;
    FakePrinter printer;
    FakeSoundOutput sound;
    FakeEventWait wait;
    WatchedDrive drive;
    FakeCommandService commands;
    FakePlayerService mediaKeys;
    FakeDoNotDisturb doNotDisturb;
    FakeDesktopNotices notices;
    FakeCalendarHelper calendarHelper;
    const ProgramPorts ports{
        .clock = time,
        .timers = time,
        .jumps = time,
        .realTimers = realTime,
        .boxes = boxes,
        .handlers = handlers,
        .tray = tray,
        .stack = stack,
        .focus = focus,
        .fullScreen = fullScreen,
        .starter = starter,
        .autostart = autostart,
        .printer = printer,
        .sound = sound,
        .wait = wait,
        .drive = drive,
        .playback = drive,
        .commands = commands,
        .mediaKeys = mediaKeys,
        .doNotDisturb = doNotDisturb,
        .notices = notices,
        .calendarHelper = calendarHelper,
        .display = {.power = Borrowed<const Power>(power), .memory = Borrowed<const Memory>(memory)}};
    ProgramState state;
    QStringList journal;
    std::unique_ptr<RunningProgram> program;

    explicit RunningBench(const QString& function, bool acceptsCommands = false) {
        CopyFiles(QStringLiteral(TICKWELL_MASTERS), dir.path(), RequiredFiles());
        drive.PutIn(ThreeTracks());
        state.started = StartUp(dir.path(), [&] {
            auto store = std::make_unique<FakeSettingsStore>();
            store->Put(QStringLiteral("SetUp"), QStringLiteral("Function"), function);
            store->Put(QStringLiteral("Remote"), QStringLiteral("AcceptsCommands"),
                       acceptsCommands ? QStringLiteral("True") : QStringLiteral("False"));
            return store;
        });
        program = std::make_unique<RunningProgram>(ports, state, [this] { Note(QStringLiteral("closed")); });
        program->Start();
        time.Advance(kStartUp);
    }

    /// Records an event and the windows still open at that moment.
    void Note(const QString& what) {
        journal.append(what + (sound.OpenDevices() > 0 ? QStringLiteral(", sound") : QString()) +
                       (state.started.dayDatabase.IsOpen() ? QStringLiteral(", day database") : QString()));
    }
    static QWidget& Window(const char* name) { return WindowNamed(QLatin1StringView(name)); }
    static void Press(const char* window, const char* button) {
        ChildOf<QPushButton>(Window(window), QLatin1StringView(button)).click();
    }
};

}  // namespace tickwell::app
