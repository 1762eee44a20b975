// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "app/media.h"
#include "app/options.h"
#include "app/program_icon.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "app/windows.h"
#include "core/handlers.h"
#include "core/ports/autostart.h"
#include "display/main_window.h"
#include "platform/desktop_programs.h"
#include "platform/power_supplies.h"
#include "platform/proc_memory.h"
#include "platform/qt_event_wait.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_printer.h"
#include "platform/qt_timers.h"
#include "platform/qt_tray.h"
#include "platform/sdl_sound_output.h"
#include "platform/system_clock.h"
#include "platform/upower.h"
#include "platform/virtual_time_pipe.h"
#include "platform/x11_stack.h"

namespace tickwell {

/// The whole program: it builds ports, state and main window, hands them down by reference, and opens windows
/// on request. One instance, made by main.
class Program : public QObject {
    Q_OBJECT

public:
    explicit Program(const Options& options);

    /// Runs until the main window closes; the exit code of the process.
    int Run();

private:
    void ShowIcon();
    void Start();
    TimingParts Timing(const Clock& clock, TimerSource& timers);
    void ComeForward(bool withMenu);
    void Fail(const QString& reason);
    void SaveForSessionEnd();

    Options m_options;
    QtMessageBoxes m_boxes;
    Handlers m_handlers;
    SystemClock m_systemClock;
    QtTimers m_qtTimers;
    std::unique_ptr<Timer> m_iconTimer;
    ProcMemory m_memory;
    PowerSupplies m_powerSupplies;
    UPower m_power{m_powerSupplies};
    QtTray m_tray{&ProgramIcon};
    X11Stack m_stack;
    DesktopPrograms m_starter;
    QtPrinter m_printer;
    SdlSoundOutput m_sound;
    QtEventWait m_wait;
    StopwatchState m_stopwatch;
    CountdownState m_countdown;
    std::unique_ptr<VirtualTime> m_virtualTime;
    std::unique_ptr<VirtualTimePipe> m_virtualTimePipe;
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<Autostart> m_autostart;
    Started m_started;
    std::unique_ptr<Media> m_media;
    std::unique_ptr<Windows> m_windows;
    std::unique_ptr<Form1> m_form;
};

}  // namespace tickwell
