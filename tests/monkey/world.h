// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "app/running_program.h"
#include "monkey/random.h"
#include "platform/desktop/qt_message_boxes.h"
#include "platform/time/virtual_time.h"
#include "support/fake_autostart.h"
#include "support/fake_calendar_helper.h"
#include "support/fake_cd_drive.h"
#include "support/fake_command_service.h"
#include "support/fake_desktop_notices.h"
#include "support/fake_do_not_disturb.h"
#include "support/fake_event_wait.h"
#include "support/fake_focus_return.h"
#include "support/fake_full_screen_watch.h"
#include "support/fake_memory.h"
#include "support/fake_player_service.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_program_starter.h"
#include "support/fake_sound_output.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"

namespace tickwell {

/// A machine that runs the complete program once, from start to end. Windows, message boxes, day database and
/// settings file are real; tray, sound, drive, printer and other programs are fakes. Time passes only in
/// Pass().
struct Machine {
    Machine(const QDateTime& now, qint64 tick) : time(now, tick) {}

    platform::VirtualTime time;
    RealTimerSource realTime{time};
    platform::QtMessageBoxes boxes;
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
    FakeCdDrive drive;
    FakeCommandService commands;
    FakePlayerService mediaKeys;
    FakeDoNotDisturb doNotDisturb;
    FakeDesktopNotices notices;
    FakeCalendarHelper calendarHelper;
    app::ProgramState state;
    bool hasClosed = false;   ///< the main window has closed; a message box may still delay the end
    qint64 passed = 0;        ///< ms since the start
    bool wasOddYear = false;  ///< the year has been outside the calendar's range at some time since the start
    bool wasShownForNow = false;  ///< another program has chosen the function, so it must not be stored
    AppSettings stored;           ///< the settings when the main window closed
    FurtherSettings storedFurther;
    std::unique_ptr<app::RunningProgram> program;

    /// Advances time, disc and sound together, and Qt's timers with them.
    void Pass(qint64 milliseconds);
    void SetClock(const QDateTime& now);
};

/// The user's folders, which outlive the machine, and the current machine.
class World {
public:
    World();

    /// Starts the program in the user's folder, on a machine with a random date and tick count. Throws
    /// RunTimeError.
    void Start(Random& random);

    /// Called after the program has ended. Destroys the machine and all remaining windows.
    void End();

    /// Must be called between Start and End only.
    Machine& Now() { return *m_machine; }
    const Machine& Now() const { return *m_machine; }
    bool IsRunning() const { return m_machine != nullptr; }

    QString Folder() const { return m_home.filePath(QStringLiteral("tickwell")); }
    QString DatabasePath() const { return Folder() + QStringLiteral("/DayDate.mdb"); }
    /// A file for reading events; nothing creates it in advance.
    QString EventsPath() const { return m_home.filePath(QStringLiteral("days.ics")); }
    QString SettingsPath() const { return m_home.filePath(QStringLiteral("TKW2/TKW2.ini")); }

private:
    QTemporaryDir m_home;
    std::unique_ptr<Machine> m_machine;
};

}  // namespace tickwell
