// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/world.h"

#include <QApplication>
#include <QDir>
#include <array>

#include "app/folder_setup.h"
#include "monkey/still_clock.h"
#include "platform/files/ini_file_store.h"
#include "support/borrowed.h"
#include "support/discs.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFramesPerMillisecond = 48;
constexpr int kFirstCalendarYear = 1926;
constexpr int kLastCalendarYear = 2100;

/// Moments near the limits of calendars and clocks.
const std::array<QDateTime, 10>& Moments() {
    static const std::array moments{
        QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)),  QDateTime(QDate(1999, 12, 31), QTime(23, 59, 40)),
        QDateTime(QDate(2000, 2, 28), QTime(23, 59, 50)), QDateTime(QDate(2024, 2, 29), QTime(11, 59, 30)),
        QDateTime(QDate(2100, 12, 31), QTime(23, 59, 0)), QDateTime(QDate(1926, 1, 1), QTime(0, 0, 0)),
        QDateTime(QDate(2026, 5, 3), QTime(8, 29, 55)),   QDateTime(QDate(2019, 4, 30), QTime(23, 0, 0)),
        QDateTime(QDate(1989, 1, 7), QTime(12, 0, 0)),    QDateTime(QDate(2026, 10, 31), QTime(0, 0, 1)),
    };
    return moments;
}

constexpr qint64 kNearTheEnd = 2'147'483'648 - 60'000;  // ms; one minute before the tick count overflows

}  // namespace

void Machine::Pass(qint64 milliseconds) {
    time.Advance(milliseconds);
    drive.Pass(milliseconds);
    sound.Sound(milliseconds * kFramesPerMillisecond);
    PassOnStillClock(milliseconds);
    passed += milliseconds;
    SetClock(time.Now());
}

void Machine::SetClock(const QDateTime& now) {
    time.SetNow(now);
    wasOddYear =
        wasOddYear || now.date().year() < kFirstCalendarYear || now.date().year() > kLastCalendarYear;
}

World::World() {
    if (!m_home.isValid()) {
        qFatal("no temporary folder");
    }
}

void World::Start(Random& random) {
    m_machine = std::make_unique<Machine>(random.Pick(Moments()), random.OneIn(6) ? kNearTheEnd : 307'000);
    Machine& machine = *m_machine;
    machine.tray.SetThere(!random.OneIn(3));
    machine.drive.exists = !random.OneIn(4);
    machine.starter.found.insert(u"hardinfo"_s, u"/usr/bin/hardinfo"_s);
    if (random.OneIn(2)) {
        machine.drive.PutIn(ThreeTracks());
    }
    app::PrepareFolder(Folder(), QStringLiteral(TICKWELL_MASTERS));
    machine.state.started =
        app::StartUp(Folder(), [this] { return std::make_unique<platform::IniFileStore>(SettingsPath()); });
    machine.state.started.further.remote.acceptsCommands = random.OneIn(2);
    machine.state.started.further.remote.mediaKeys = random.OneIn(2);
    machine.state.started.further.cd.showsTitles = random.OneIn(2);
    machine.state.started.further.notices.tellsDays = random.OneIn(2);
    machine.state.started.further.notices.tellsCountdown = random.OneIn(2);
    const app::ProgramPorts ports{.clock = machine.time,
                                  .timers = machine.time,
                                  .jumps = machine.time,
                                  .realTimers = machine.realTime,
                                  .boxes = machine.boxes,
                                  .handlers = machine.handlers,
                                  .tray = machine.tray,
                                  .stack = machine.stack,
                                  .focus = machine.focus,
                                  .fullScreen = machine.fullScreen,
                                  .starter = machine.starter,
                                  .autostart = machine.autostart,
                                  .printer = machine.printer,
                                  .sound = machine.sound,
                                  .wait = machine.wait,
                                  .drive = machine.drive,
                                  .playback = machine.drive,
                                  .commands = machine.commands,
                                  .mediaKeys = machine.mediaKeys,
                                  .doNotDisturb = machine.doNotDisturb,
                                  .notices = machine.notices,
                                  .calendarHelper = machine.calendarHelper,
                                  .display = {.power = Borrowed<const Power>(machine.power),
                                              .memory = Borrowed<const Memory>(machine.memory)}};
    machine.program = std::make_unique<app::RunningProgram>(ports, machine.state, [&machine] {
        machine.hasClosed = true;
        machine.stored = machine.state.started.settings;
        machine.storedFurther = machine.state.started.further;
        machine.handlers.WhenQuiet([] { QCoreApplication::quit(); });
    });
    machine.program->Start();
}

/// The boxes of a real process disappear when it ends; here they are deleted after their pending callbacks
/// have run.
void World::End() {
    m_machine->program.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QWidgetList left = QApplication::topLevelWidgets();
    for (QWidget* widget : left) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_")) {
            delete widget;
        }
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_machine.reset();
}

}  // namespace tickwell
