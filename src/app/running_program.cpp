// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/running_program.h"

#include "app/log.h"
#include "app/window_placing.h"
#include "controls/bring_forward.h"
#include "core/settings_io.h"
#include "days/day_off.h"
#include "store/backup.h"

namespace tickwell::app {

RunningProgram::RunningProgram(const ProgramPorts& ports, ProgramState& state, std::function<void()> closed)
    : m_ports(ports),
      m_state(state),
      m_closed(std::move(closed)),
      m_holidays(state.started.folder, state.started.dayDatabase, state.started.further.calendar),
      m_quiet(state.started.further.quiet, ports.clock, ports.doNotDisturb),
      m_sound(ports.sound, [&quiet = state.started.further.quiet] { return quiet.volume; }),
      m_media({.realTimers = ports.realTimers,
               .timers = ports.timers,
               .sound = m_sound,
               .wait = ports.wait,
               .boxes = ports.boxes,
               .handlers = ports.handlers,
               .drive = ports.drive,
               .playback = ports.playback,
               .tellsNoCdDrive = state.started.further.tellsNoCdDrive,
               .noticeSilenced =
                   [this] {
                       m_ports.handlers.Run(
                           [this] { SaveNotice(*m_state.started.store, m_state.started.further); });
                   },
               .showsTitles = [&further = state.started.further] { return further.cd.showsTitles; },
               .folder = state.started.folder}) {}

/// A value of the main window that cannot be read ends the start: before the message about a missing CD
/// drive, so that there is one box.
void RunningProgram::CheckStoredWindow() const {
    AppSettings settings = m_state.started.settings;
    WindowGeometry geometry;
    LoadWindowGeometry(*m_state.started.store, settings, geometry);
}

void RunningProgram::Start() {
    CheckStoredWindow();
    m_media.System().OpenAtStart();
    m_windows = std::make_unique<Windows>(PartsOfWindows());
    m_form = std::make_unique<shell::Form1>(PartsOfMainWindow());
    m_windows->SetMainWindow(*m_form);
    try {
        m_form->Form_Load();
    } catch (const RunTimeError&) {
        m_form.reset();
        throw;
    }
    m_form->show();
    m_quiet.Follow();
    StartNotices();
    StartBackups();
    m_remote = std::make_unique<RemoteAccess>(RemoteAccessParts{.service = m_ports.commands,
                                                                .timers = m_ports.realTimers,
                                                                .clock = m_ports.clock,
                                                                .announcements = Announcements(),
                                                                .mainWindow = *m_form,
                                                                .timing = *m_timing});
    OpenTimers();
    m_mediaKeys =
        std::make_unique<MediaKeys>(MediaKeysParts{.service = m_ports.mediaKeys,
                                                   .timers = m_ports.realTimers,
                                                   .handlers = m_ports.handlers,
                                                   .further = m_state.started.further,
                                                   .player = m_media.System().Player(),
                                                   .drive = m_ports.drive,
                                                   .openWindow = [this] { m_windows->OpenCdPlayer(); }});
    FollowSync();
}

void RunningProgram::OpenTimers() {
    m_timers = std::make_unique<Timers>(TimersParts{
        .folder = m_state.started.folder,
        .media = m_media.System().Commands(),
        .clock = m_ports.clock,
        .timers = m_ports.timers,
        .handlers = m_ports.handlers,
        .boxes = m_ports.boxes,
        .countdown = *m_timing,
        .windows = *m_windows,
        .isSilent = [this] { return m_quiet.SilencesTimer(); },
        .isDayOff =
            [this](QDate day) { return days::IsDayOff(m_state.started.dayDatabase, m_holidays, day); }});
}

void RunningProgram::FollowSync() {
    const SyncSettings& settings = m_state.started.further.sync;
    if (!settings.use) {
        m_sync.reset();
    } else if (m_sync) {
        m_sync->Follow();
    } else {
        m_sync = std::make_unique<DaySync>(DaySyncParts{
            .dayDatabase = m_state.started.dayDatabase,
            .folder = m_state.started.folder,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .settings = settings,
            .watch = m_ports.makeFolderWatch(),
            .isMarking = [this] { return m_windows->IsMarking(); },
            .daysChanged = [this] { m_ports.handlers.Run([this] { m_windows->DaysChanged(); }); },
            .statusChanged =
                [this] {
                    m_syncChanged();
                    m_ports.windowGone();  // much memory was freed
                }});
    }
    m_syncChanged();
}

settings_ui::SyncOperations RunningProgram::Sync() {
    return {
        .status = [this] { return m_sync ? m_sync->StatusText() : QString(); },
        .mergeNow =
            [this] {
                if (m_sync) {
                    m_sync->Request();
                }
            },
        .listen =
            [this](std::function<void()> changed) { m_syncChanged = changed ? std::move(changed) : [] {}; }};
}

void RunningProgram::StartNotices() {
    m_dayNotices = std::make_unique<DayNotices>(
        DayNoticesParts{.notices = m_ports.notices,
                        .clock = m_ports.clock,
                        .timers = m_ports.timers,
                        .jumps = m_jumps.Add(),
                        .handlers = m_ports.handlers,
                        .store = *m_state.started.store,
                        .announcements = Announcements(),
                        .openCalendar = [this](QDate day) { OpenCalendarOn(day); }});
    m_countdownNotice = std::make_unique<CountdownNotice>(
        CountdownNoticeParts{.notices = m_ports.notices,
                             .clock = m_ports.clock,
                             .timers = m_ports.timers,
                             .jumps = m_jumps.Add(),
                             .handlers = m_ports.handlers,
                             .further = m_state.started.further,
                             .confirm = [this] { m_timing->CloseNotice(); },
                             .showAgain = [this](const QString& name) { m_timing->ShowNoticeOf(name); }});
}

void RunningProgram::StartBackups() {
    m_dailyBackup = std::make_unique<DailyBackup>(
        DailyBackupParts{.clock = m_ports.clock,
                         .timers = m_ports.timers,
                         .jumps = m_jumps.Add(),
                         .handlers = m_ports.handlers,
                         .boxes = m_ports.boxes,
                         .settings = m_state.started.further.backup,
                         .canBegin = [this] { return m_state.started.dayDatabase.IsOpen(); },
                         .take =
                             [this](QDate day, std::function<void(const QString& fault)> done) {
                                 m_windows->DayFiles().Do(
                                     [day](const ProgramFolder& folder, store::StoreDisk& disk) {
                                         store::TakeBackup(folder, day, disk);
                                     },
                                     std::move(done));
                             }});
}

void RunningProgram::OpenCalendarOn(QDate day) {
    if (QWidget* blocking = BlockingWindow()) {
        return controls::BringForward(*blocking);
    }
    m_ports.handlers.Run([this, day] { m_windows->OpenCalendarOn(day); }, m_form.get());
}

void RunningProgram::FollowSettings() {
    if (m_remote) {
        m_dayNotices->Follow();
        m_dailyBackup->Follow();
        m_media.System().FollowSettings();
        m_remote->Follow();
        m_mediaKeys->Follow();
        m_quiet.Follow();
        FollowSync();
    }
}

void RunningProgram::MainWindowClosed() {
    m_sync.reset();
    m_dayNotices.reset();
    m_dailyBackup.reset();
    m_countdownNotice.reset();
    m_timers.reset();
    m_remote.reset();
    m_mediaKeys.reset();
    m_media.Close();
    m_windows.reset();
    m_state.started.dayDatabase.Close();
    m_closed();
}

void RunningProgram::ComeForward(bool withMenu) {
    if (m_form == nullptr) {
        return;
    }
    if (withMenu) {
        m_form->ComeForwardWithMenu();
    } else {
        m_form->ComeForward();
    }
}

void RunningProgram::Answer(Request request) {
    if (m_form == nullptr) {
        return;
    }
    switch (request) {
        case Request::ComeForward:
            return ComeForward(false);
        case Request::Menu:
            return ComeForward(true);
        case Request::Calendar:
        case Request::Timer:
        case Request::Stopwatch:
            if (QWidget* blocking = BlockingWindow()) {
                return controls::BringForward(*blocking);
            }
            break;
        case Request::Help:
            break;
    }
    m_ports.handlers.Run([this, request] { OpenWindow(request); }, m_form.get());
}

void RunningProgram::OpenWindow(Request request) {
    switch (request) {
        case Request::Calendar:
            return m_windows->OpenCalendar();
        case Request::Timer:
            return m_timing->ShowTimerForm();
        case Request::Stopwatch:
            return m_timing->ShowStopForm();
        case Request::Help:
            return m_windows->OpenHelp();
        case Request::ComeForward:
        case Request::Menu:
            return;
    }
}

void RunningProgram::SaveForSessionEnd() {
    try {
        if (m_form) {
            m_form->SaveAll();
        }
    } catch (const RunTimeError& error) {
        // The old settings are kept. No message box: it would delay the end of the session.
        qCWarning(AppLog).noquote() << "the settings were not stored at the end of the session:"
                                    << error.Detail();
    }
}

}  // namespace tickwell::app
