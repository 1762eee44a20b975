// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/running_program.h"

#include "app/log.h"
#include "core/settings_io.h"

namespace tickwell::app {

RunningProgram::RunningProgram(const ProgramPorts& ports, ProgramState& state, std::function<void()> closed)
    : m_ports(ports),
      m_state(state),
      m_closed(std::move(closed)),
      m_holidays(state.started.folder, state.started.dayDatabase, state.started.further.calendar),
      m_media({.realTimers = ports.realTimers,
               .timers = ports.timers,
               .sound = ports.sound,
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
}

WindowsParts RunningProgram::PartsOfWindows() {
    media::SoundPlayback& sounds = m_media.Sounds();
    return {.dayDatabase = m_state.started.dayDatabase,
            .holidays = m_holidays,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .handlers = m_ports.handlers,
            .boxes = m_ports.boxes,
            .programs = m_ports.starter,
            .autostart = m_ports.autostart,
            .settings = m_state.started.settings,
            .further = m_state.started.further,
            .folder = m_state.started.folder,
            .cdPlayer = m_media.System().Player(),
            .listen = [&sounds](const QString& name) { sounds.PlayChime(name, 1); },
            .isComposited = m_ports.isComposited,
            .gone = m_ports.windowGone};
}

shell::MainWindowParts RunningProgram::PartsOfMainWindow() {
    media::SoundPlayback& sounds = m_media.Sounds();
    return {.settings = m_state.started.settings,
            .further = m_state.started.further,
            .store = *m_state.started.store,
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .jumps = m_ports.jumps,
            .power = *m_ports.display.power,
            .tray = m_ports.tray,
            .stack = m_ports.stack,
            .starter = m_ports.starter,
            .folder = m_state.started.folder,
            .handlers = m_ports.handlers,
            .windows = m_windows->Openers(),
            .makeDisplays = [this](const DisplayView& view) { return MakeDisplays(PartsOfDisplays(), view); },
            .playChime = [&sounds](const QString& name, qint32 count) { sounds.PlayChime(name, count); },
            .closed = [this] { MainWindowClosed(); }};
}

DisplaysParts RunningProgram::PartsOfDisplays() {
    return {.ports = m_ports.display,
            .settings = m_state.started.settings,
            .further = m_state.started.further,
            .announcements = {.dayDatabase = m_state.started.dayDatabase,
                              .holidays = m_holidays,
                              .further = m_state.started.further},
            .clock = m_ports.clock,
            .timers = m_ports.timers,
            .handlers = m_ports.handlers,
            .timing = Timing(),
            .cdPlayer = m_media.System().Player(),
            .openCdPlayer = [this] { m_windows->OpenCdPlayer(); }};
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
            .place = [this](QWidget& window) { m_windows->Place(window); },
            .version = QStringLiteral(TICKWELL_VERSION)};
}

void RunningProgram::MainWindowClosed() {
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
