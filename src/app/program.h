// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "app/options.h"
#include "app/program_icon.h"
#include "app/running_program.h"
#include "app/single_instance.h"
#include "core/ports/autostart.h"
#include "platform/bus/command_bus.h"
#include "platform/bus/do_not_disturb_bus.h"
#include "platform/bus/notice_bus.h"
#include "platform/bus/player_bus.h"
#include "platform/calendar/ical_process.h"
#include "platform/desktop/qt_message_boxes.h"
#include "platform/desktop/qt_tray.h"
#include "platform/desktop/x11_focus.h"
#include "platform/desktop/x11_full_screen.h"
#include "platform/desktop/x11_stack.h"
#include "platform/disc/cd_helper_drive.h"
#include "platform/disc/qt_event_wait.h"
#include "platform/print/helper_printer.h"
#include "platform/processes/desktop_programs.h"
#include "platform/sound/helper_sound_output.h"
#include "platform/time/qt_timers.h"
#include "platform/time/system_clock.h"
#include "platform/time/system_time_jumps.h"
#include "platform/time/virtual_time_pipe.h"

namespace tickwell::app {

/// The whole program on a real machine: creates the ports and the state, starts up, and passes both to
/// RunningProgram. One instance, created by main.
class Program : public QObject {
    Q_OBJECT

public:
    /// `users`: what this process inherited from the user's desktop; tools are started with the same
    /// environment.
    Program(const Options& options, platform::Inheritance users);

    /// Runs until the main window is closed; returns the exit code of the process.
    int Run();

private:
    void ShowIcon();
    void Tidy();
    void Start();
    ProgramPorts Ports();
    bool TakeFolder(const QString& folder);
    void Fail(const QString& reason, const QString& remedy);

    Options m_options;
    platform::QtMessageBoxes m_boxes;
    Handlers m_handlers;
    platform::SystemClock m_systemClock;
    platform::QtTimers m_qtTimers;
    RealTimerSource m_realTimers{m_qtTimers};
    platform::SystemTimeJumps m_systemJumps;
    std::unique_ptr<Timer> m_iconTimer;
    std::unique_ptr<Timer> m_tidyTimer;
    platform::QtTray m_tray{[] { return ProgramIcon(); }};
    platform::X11Stack m_stack;
    platform::X11Focus m_focus;
    platform::X11FullScreen m_fullScreen;
    platform::DesktopPrograms m_starter;
    platform::IcalProcess m_calendarHelper;
    platform::HelperPrinter m_printer;
    platform::HelperSoundOutput m_sound;
    platform::QtEventWait m_wait;
    platform::CommandBus m_commands;
    platform::PlayerBus m_mediaKeys;
    platform::DoNotDisturbBus m_doNotDisturb;
    platform::NoticeBus m_notices;
    std::unique_ptr<platform::VirtualTime> m_virtualTime;
    std::unique_ptr<platform::VirtualTimePipe> m_virtualTimePipe;
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<Autostart> m_autostart;
    platform::CdHelperDrive m_drive;
    ProgramState m_state;
    std::unique_ptr<RunningProgram> m_running;
};

}  // namespace tickwell::app
