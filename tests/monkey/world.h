// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "app/running_program.h"
#include "monkey/random.h"
#include "platform/qt_message_boxes.h"
#include "platform/virtual_time.h"
#include "support/fake_autostart.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_memory.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_program_starter.h"
#include "support/fake_sound_output.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"

namespace tickwell {

/// A machine on which the whole program runs once, from its start to its end: its windows, message boxes, day
/// database and settings file are the real ones; what would leave the process (tray, sound, drive, printer,
/// other programs) a test holds in its hands. Time passes only when it is told to.
struct Machine {
    Machine(const QDateTime& now, qint64 tick) : time(now, tick) {}

    VirtualTime time;
    QtMessageBoxes boxes;
    Handlers handlers{boxes};
    FakePower power;
    FakeMemory memory;
    FakeTray tray;
    FakeWindowStack stack;
    FakeProgramStarter starter;
    FakeAutostart autostart;
    FakePrinter printer;
    FakeSoundOutput sound;
    FakeEventWait wait;
    FakeCdDrive drive;
    ProgramState state;
    bool hasClosed = false;   ///< the main window; a box may still keep the program from its end
    qint64 passed = 0;        ///< ms since the start
    bool wasOddYear = false;  ///< at some time since the start it was a year that the calendar does not show
    AppSettings stored;       ///< what the settings were when the main window closed
    FurtherSettings storedFurther;
    std::unique_ptr<RunningProgram> program;

    /// Time, disc and sound go on together, and the toolkit's clock with them.
    void Pass(qint64 milliseconds);
    void SetClock(const QDateTime& now);
};

/// The user's folders, which outlive the machine, and the machine that runs at present.
class World {
public:
    World();

    /// Starts the program in the user's folder, on a machine that was turned on at some moment. Throws
    /// RunTimeError.
    void Start(Random& random);

    /// After the program has ended: takes the machine away with all that still stands on its screen.
    void End();

    /// Between Start and End.
    Machine& Now() { return *m_machine; }
    const Machine& Now() const { return *m_machine; }
    bool IsRunning() const { return m_machine != nullptr; }

    QString Folder() const { return m_home.filePath(QStringLiteral("tickwell")); }
    QString DatabasePath() const { return Folder() + QStringLiteral("/DayDate.mdb"); }
    QString SettingsPath() const { return m_home.filePath(QStringLiteral("TKW2/TKW2.ini")); }

private:
    QTemporaryDir m_home;
    std::unique_ptr<Machine> m_machine;
};

}  // namespace tickwell
