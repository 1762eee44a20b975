// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/running_program.h"

#include "app/log.h"
#include "app/window_placing.h"
#include "controls/bring_forward.h"
#include "core/settings_io.h"
#include "days/day_off.h"
#include "store/backup.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

WindowsParts RunningProgram::PartsOfWindows() {
    media::SoundPlayback& sounds = m_media.Sounds();
    return {.dayDatabase = m_state.started.dayDatabase,
            .holidays = m_holidays,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .handlers = m_ports.handlers,
            .boxes = m_ports.boxes,
            .notices = m_ports.notices,
            .calendarHelper = m_ports.calendarHelper,
            .programs = m_ports.starter,
            .autostart = m_ports.autostart,
            .settings = m_state.started.settings,
            .further = m_state.started.further,
            .folder = m_state.started.folder,
            .cdPlayer = m_media.System().Player(),
            .listen = [this, &sounds](
                          const QString& name,
                          qint32 volume) { m_sound.With(volume, [&] { sounds.PlayChime(name, 1); }); },
            .isComposited = m_ports.isComposited,
            .isPlacedByCompositor = m_ports.isPlacedByCompositor,
            .hasTray = [this] { return m_ports.tray.IsThere(); },
            .gone =
                [this] {
                    m_ports.windowGone();
                    if (m_sync) {
                        m_sync->LookAtBook();
                    }
                },
            .applied = [this] { FollowSettings(); },
            .closeTools = [this] { m_timers.reset(); },
            .openTools =
                [this] {
                    m_holidays.List().ReadAgain();
                    OpenTimers();
                },
            .sync = Sync()};
}

shell::MainWindowParts RunningProgram::PartsOfMainWindow() {
    media::SoundPlayback& sounds = m_media.Sounds();
    return {.settings = m_state.started.settings,
            .further = m_state.started.further,
            .store = *m_state.started.store,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .jumps = m_jumps.Add(),
            .power = *m_ports.display.power,
            .tray = m_ports.tray,
            .stack = m_ports.stack,
            .focus = m_ports.focus,
            .fullScreen = m_ports.fullScreen,
            .starter = m_ports.starter,
            .folder = m_state.started.folder,
            .handlers = m_ports.handlers,
            .windows = m_windows->Openers(),
            .makeDisplays = [this](const DisplayView& view) { return MakeDisplays(PartsOfDisplays(), view); },
            .playChime =
                [this, &sounds](const QString& name, qint32 count) {
                    if (!m_quiet.SilencesChime()) {
                        sounds.PlayChime(name, count);
                    }
                },
            .isPlacedByCompositor = m_ports.isPlacedByCompositor,
            .isComposited = m_ports.isComposited,
            .passClicks = m_ports.passClicks,
            .closed = [this] { MainWindowClosed(); }};
}

DisplaysParts RunningProgram::PartsOfDisplays() {
    return {.ports = m_ports.display,
            .settings = m_state.started.settings,
            .further = m_state.started.further,
            .announcements = Announcements(),
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .handlers = m_ports.handlers,
            .timing = Timing(),
            .cdPlayer = m_media.System().Player(),
            .openCdPlayer = [this] { m_windows->OpenCdPlayer(); },
            .timingMade = [this](timing::TimingTools& tools) { m_timing = &tools; }};
}

days::AnnouncementParts RunningProgram::Announcements() {
    return {.dayDatabase = m_state.started.dayDatabase,
            .holidays = m_holidays,
            .further = m_state.started.further};
}

timing::TimingParts RunningProgram::Timing() {
    media::Multimedia& media = m_media.System().Commands();
    const auto sendCommand = [&media](const QString& command) { media.MciSend(command, true); };
    return {.stopwatch = m_state.stopwatch,
            .countdown = m_state.countdown,
            .further = m_state.started.further,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .handlers = m_ports.handlers,
            .boxes = m_ports.boxes,
            .printer = m_ports.printer,
            .help = m_windows->Help(),
            .enterFolder = [folder = m_state.started.folder] { folder.Enter(); },
            .sendCommand = sendCommand,
            .isSilent = [this] { return m_quiet.SilencesTimer(); },
            .place = [this](QWidget& window) { m_windows->Place(window); },
            .version = QStringLiteral(TICKWELL_VERSION),
            .noticeOpened =
                [this](const QString& name) {
                    if (m_countdownNotice) {
                        m_countdownNotice->WindowOpened(name);
                    }
                },
            .noticeClosed =
                [this] {
                    if (m_countdownNotice) {
                        m_countdownNotice->WindowClosed();
                    }
                },
            .openTimers =
                [this] {
                    if (m_timers) {  // not while their file is replaced
                        m_timers->Desk().Show();
                    }
                },
            .openAlarms =
                [this] {
                    if (m_timers) {
                        m_timers->Alarms().Show();
                    }
                },
            .timeJumped =
                [this] {
                    if (m_timers) {
                        m_timers->TimeJumped();
                    }
                }};
}

}  // namespace tickwell::app
