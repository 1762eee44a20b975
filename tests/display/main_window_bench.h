// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings_io.h"
#include "display/main_window.h"
#include "media/media_system.h"
#include "platform/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_help_viewer.h"
#include "support/fake_memory.h"
#include "support/fake_message_boxes.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_program_starter.h"
#include "support/fake_settings_store.h"
#include "support/fake_sound_output.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"

namespace tickwell {

/// The main window, with a real day database, and with all else in the test's hands.
struct MainWindowBench {
    FakeSettingsStore store;
    AppSettings settings;
    FurtherSettings further;
    VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    DayStore dayStore;
    std::unique_ptr<DayDatabase> dayDatabase = OpenDayDatabase(dayStore.Path());
    FakePower power;
    FakeMemory memory;
    FakeTray tray;
    FakeWindowStack stack;
    FakeProgramStarter starter;
    QString folder;
    OtherWindows windows;
    StopwatchState stopwatch;
    CountdownState countdown;
    FakePrinter printer;
    FakeHelpViewer help;
    FakeCdDrive drive;
    FakeSoundOutput sound;
    FakeEventWait wait;
    std::unique_ptr<MediaSystem> media;
    QList<std::pair<QString, qint32>> chimes;
    int closed = 0;
    std::unique_ptr<Form1> form;

    void Start() {
        LoadSettings(store, settings);
        LoadFurtherSettings(store, further);
        media = std::make_unique<MediaSystem>(MediaSystemParts{
            {drive, drive, sound, time, wait}, boxes, handlers, time, further.tellsNoCdDrive});
        const auto playChime = [this](const QString& name, qint32 count) { chimes.append({name, count}); };
        form = std::make_unique<Form1>(MainWindowParts{settings,
                                                       further,
                                                       store,
                                                       dayDatabase,
                                                       time,
                                                       time,
                                                       time,
                                                       power,
                                                       memory,
                                                       tray,
                                                       stack,
                                                       starter,
                                                       folder,
                                                       handlers,
                                                       windows,
                                                       Timing(),
                                                       {media->Player(), playChime},
                                                       [this] { ++closed; }});
        form->Form_Load();
        form->show();
    }
    TimingParts Timing() {
        return {stopwatch,
                countdown,
                time,
                time,
                handlers,
                boxes,
                printer,
                help,
                [] {},
                [](const QString&) {},
                [](QWidget&) {},
                QStringLiteral("2.0.0")};
    }
    MovingWord& Upper() const { return *form->findChild<MovingWord*>(QStringLiteral("MovingWord1")); }
    MovingWord& Lower() const { return *form->findChild<MovingWord*>(QStringLiteral("MovingWord2")); }
    QAction& Item(const char* name) const { return *form->findChild<QAction*>(QLatin1StringView(name)); }
};

}  // namespace tickwell
