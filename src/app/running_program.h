// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "app/displays.h"
#include "app/media.h"
#include "app/startup.h"
#include "app/windows.h"
#include "shell/main_window.h"

namespace tickwell::app {

/// The machine and its desktop, as the program meets them; all outlive it.
struct ProgramPorts {
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;
    RealTimerSource& realTimers;
    MessageBoxes& boxes;
    Handlers& handlers;
    Tray& tray;
    WindowStack& stack;
    ProgramStarter& starter;
    Autostart& autostart;
    Printer& printer;
    media::SoundOutput& sound;
    media::EventWait& wait;
    media::CdDrive& drive;
    media::CdPlayback& playback;
    DisplayPorts display;
    std::function<void()> windowGone = [] {};  ///< told of each window and menu that goes
};

/// What the program keeps while it runs; outlives it as well.
struct ProgramState {
    Started started;
    timing::StopwatchState stopwatch;
    timing::CountdownState countdown;
};

/// The program from the end of its start-up to the close of its main window: sound and discs, the main window
/// and the others, tied together over the ports.
class RunningProgram {
public:
    /// `state` is started. `closed` is called with the end of the main window; sound, the other windows and
    /// the day database are gone by then.
    RunningProgram(const ProgramPorts& ports, ProgramState& state, std::function<void()> closed);

    /// Opens the CD drive, and shows the main window. Throws RunTimeError; there is then no main window.
    void Start();

    /// As Form1 has it; nothing happens where there is no main window.
    void ComeForward(bool withMenu);

    /// The desktop session ends and waits for us: saving now counts as closing the window, and no box may
    /// hold it up.
    void SaveForSessionEnd();

    /// Null before Start.
    const QObject* MainWindow() const { return m_form.get(); }

    const media::CdPlayer& Player() { return m_media.System().Player(); }

private:
    WindowsParts PartsOfWindows();
    shell::MainWindowParts PartsOfMainWindow();
    DisplaysParts PartsOfDisplays();
    timing::TimingParts Timing();
    void MainWindowClosed();

    ProgramPorts m_ports;
    ProgramState& m_state;
    std::function<void()> m_closed;
    Media m_media;
    std::unique_ptr<Windows> m_windows;
    std::unique_ptr<shell::Form1> m_form;
};

}  // namespace tickwell::app
