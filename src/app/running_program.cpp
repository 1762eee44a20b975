// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/running_program.h"

#include <QDir>

namespace tickwell {

RunningProgram::RunningProgram(const ProgramPorts& ports, ProgramState& state, std::function<void()> closed)
    : m_ports(ports),
      m_state(state),
      m_closed(std::move(closed)),
      m_media({ports.realTimers, ports.timers, ports.sound, ports.wait, ports.boxes, ports.handlers,
               ports.drive, ports.playback, state.started.further.tellsNoCdDrive, QDir::currentPath()}) {}

void RunningProgram::Start() {
    m_media.System().OpenAtStart();
    m_windows = std::make_unique<Windows>(PartsOfWindows());
    m_form = std::make_unique<Form1>(PartsOfMainWindow());
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
    SoundPlayback& sounds = m_media.Sounds();
    return {m_state.started.dayDatabase,
            m_ports.clock,
            m_ports.timers,
            m_ports.handlers,
            m_ports.boxes,
            m_ports.starter,
            m_ports.autostart,
            m_state.started.settings,
            m_state.started.further,
            QDir::currentPath(),
            m_media.System().Player(),
            [&sounds](const QString& name) { sounds.PlayChime(name, 1); },
            m_ports.windowGone};
}

MainWindowParts RunningProgram::PartsOfMainWindow() {
    SoundPlayback& sounds = m_media.Sounds();
    const auto playChime = [&sounds](const QString& name, qint32 count) { sounds.PlayChime(name, count); };
    return {m_state.started.settings,
            m_state.started.further,
            *m_state.started.store,
            m_state.started.dayDatabase,
            m_ports.clock,
            m_ports.timers,
            m_ports.jumps,
            m_ports.power,
            m_ports.memory,
            m_ports.tray,
            m_ports.stack,
            m_ports.starter,
            QDir::currentPath(),
            m_ports.handlers,
            m_windows->Openers(),
            Timing(),
            {m_media.System().Player(), playChime},
            [this] { MainWindowClosed(); }};
}

TimingParts RunningProgram::Timing() {
    const QString folder = QDir::currentPath();
    const auto enterFolder = [folder] {
        if (!QDir::setCurrent(folder)) {
            throw RunTimeError(folder);
        }
    };
    Multimedia& media = m_media.System().Commands();
    const auto sendCommand = [&media](const QString& command) { media.MciSend(command, true); };
    const auto place = [this](QWidget& window) { m_windows->Place(window); };
    return {m_state.stopwatch, m_state.countdown, m_ports.clock,   m_ports.timers,
            m_ports.handlers,  m_ports.boxes,     m_ports.printer, m_windows->Help(),
            enterFolder,       sendCommand,       place,           QStringLiteral(TICKWELL_VERSION)};
}

void RunningProgram::MainWindowClosed() {
    m_media.Close();
    m_windows.reset();
    m_state.started.dayDatabase.reset();
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
    } catch (const RunTimeError&) {
        // The old settings stand; there is no one left to tell.
    }
}

}  // namespace tickwell
