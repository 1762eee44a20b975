// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/displays.h"
#include "days/table_holidays.h"
#include "media/media_system.h"
#include "platform/time/virtual_time.h"
#include "support/borrowed.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_help_viewer.h"
#include "support/fake_memory.h"
#include "support/fake_message_boxes.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_sound_output.h"
#include "support/fake_text_line.h"

namespace tickwell::displays {

/// Everything that the program's displays depend on, controlled by the test.
struct DisplaysBench {
    AppSettings settings;
    FurtherSettings further;
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    store::DayDatabase dayDatabase;
    days::TableHolidays holidays{dayDatabase};
    FakePower power;
    FakeMemory memory;
    timing::StopwatchState stopwatch;
    timing::CountdownState countdown;
    FakePrinter printer;
    FakeHelpViewer help;
    FakeCdDrive drive;
    FakeSoundOutput sound;
    FakeEventWait wait;
    RealTimerSource realTime{time};
    std::unique_ptr<media::MediaSystem> media;
    std::function<void()> openCdPlayer = [] {};

    void StartMedia() {
        media = std::make_unique<media::MediaSystem>(media::MediaSystemParts{
            .devices = {.drive = drive,
                        .playback = drive,
                        .sound = sound,
                        .timers = realTime,
                        .wait = wait,
                        .folder = {}},
            .boxes = boxes,
            .handlers = handlers,
            .timers = time,
            .tellsNoCdDrive = further.tellsNoCdDrive,
        });
    }
    app::DisplaysParts Parts() {
        return {.ports = {.power = Borrowed<const Power>(power), .memory = Borrowed<const Memory>(memory)},
                .settings = settings,
                .further = further,
                .announcements = {.dayDatabase = dayDatabase, .holidays = holidays, .further = further},
                .clock = time,
                .timers = time,
                .handlers = handlers,
                .timing = Timing(),
                .cdPlayer = media->Player(),
                .openCdPlayer = [this] { openCdPlayer(); }};
    }
    timing::TimingParts Timing() {
        return {.stopwatch = stopwatch,
                .countdown = countdown,
                .further = further,
                .clock = time,
                .timers = time,
                .handlers = handlers,
                .boxes = boxes,
                .printer = printer,
                .help = help,
                .enterFolder = [] {},
                .sendCommand = [](const QString&) {},
                .place = [](QWidget&) {},
                .version = QStringLiteral("2.0.0")};
    }
};

/// All displays of the program, with two lines that only record their texts.
struct LinesBench : DisplaysBench, DisplayFunctions {
    FakeTextLine upper;
    FakeTextLine lower;
    Displays displays;

    LinesBench() {
        StartMedia();
        displays =
            app::MakeDisplays(Parts(), {.lines = {.upper = upper, .lower = lower}, .functions = *this});
    }
    void ChangeFunction(qint32 number) override { settings.function = number; }
    qint32 GetFuncNumber() const override { return settings.function; }

    /// The display of this class.
    template <typename Kind>
    const Kind& The() const {
        for (const auto& display : displays) {
            if (const auto* found = dynamic_cast<const Kind*>(display.get())) {
                return *found;
            }
        }
        qFatal("no such display");
    }
};

}  // namespace tickwell::displays
