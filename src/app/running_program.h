// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "app/chosen_holidays.h"
#include "app/countdown_notice.h"
#include "app/daily_backup.h"
#include "app/day_notices.h"
#include "app/day_sync.h"
#include "app/displays.h"
#include "app/media.h"
#include "app/media_keys.h"
#include "app/program_ports.h"
#include "app/remote_access.h"
#include "app/request.h"
#include "app/startup.h"
#include "app/timers.h"
#include "app/windows.h"
#include "core/quiet_rule.h"
#include "core/time_jump_listeners.h"
#include "media/volume_output.h"
#include "shell/main_window.h"

namespace tickwell::app {

/// The state of the running program; outlives it as well.
struct ProgramState {
    Started started;
    timing::StopwatchState stopwatch;
    timing::CountdownState countdown;
};

/// The program from the end of start-up until its main window is closed. Connects sound and discs, the main
/// window and the other windows through the ports.
class RunningProgram {
public:
    /// `state`: after start-up. `closed` is called when the main window has closed; sound, the other windows
    /// and the day database are closed by then.
    RunningProgram(const ProgramPorts& ports, ProgramState& state, std::function<void()> closed);

    /// Opens the CD drive, and shows the main window. Throws RunTimeError; there is then no main window.
    void Start();

    /// See Form1::ComeForward and ComeForwardWithMenu. Does nothing if there is no main window.
    void ComeForward(bool withMenu);

    /// Handles the request of another start: comes forward, or opens the menu or a window without moving the
    /// main window. While a modal window blocks the others, shows that one instead; the help opens in any
    /// case. Does nothing if there is no main window.
    void Answer(Request request);

    /// Saves the settings as closing the main window does, for the end of the desktop session. The session
    /// waits for this process, so no message box is shown.
    void SaveForSessionEnd();

    /// Null before Start.
    const QObject* MainWindow() const { return m_form.get(); }

    const media::CdPlayer& Player() { return m_media.System().Player(); }

private:
    WindowsParts PartsOfWindows();
    shell::MainWindowParts PartsOfMainWindow();
    DisplaysParts PartsOfDisplays();
    days::AnnouncementParts Announcements();
    void FollowSettings();
    timing::TimingParts Timing();
    void CheckStoredWindow() const;
    void MainWindowClosed();
    void OpenWindow(Request request);
    void OpenCalendarOn(QDate day);
    void StartNotices();
    void StartBackups();
    void OpenTimers();
    void FollowSync();
    settings_ui::SyncOperations Sync();

    ProgramPorts m_ports;
    ProgramState& m_state;
    std::function<void()> m_closed;
    TimeJumpListeners m_jumps{m_ports.jumps};
    ChosenHolidays m_holidays;
    QuietRule m_quiet;
    media::VolumeOutput m_sound;  // of time signal and timer
    Media m_media;
    // Before the windows, which use both while they are destroyed
    std::unique_ptr<DaySync> m_sync;  // null while the settings do not select it
    std::function<void()> m_syncChanged = [] {};
    std::unique_ptr<Windows> m_windows;
    std::unique_ptr<shell::Form1> m_form;
    timing::TimingTools* m_timing = nullptr;  // owned by the form's displays
    // All null before Start and after the form was closed
    std::unique_ptr<DayNotices> m_dayNotices;
    std::unique_ptr<DailyBackup> m_dailyBackup;
    std::unique_ptr<CountdownNotice> m_countdownNotice;
    std::unique_ptr<RemoteAccess> m_remote;
    std::unique_ptr<MediaKeys> m_mediaKeys;
    std::unique_ptr<Timers> m_timers;
};

}  // namespace tickwell::app
