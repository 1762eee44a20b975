// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

#include "app/about_box.h"
#include "app/backup_desk.h"
#include "app/day_file_jobs.h"
#include "app/windows_parts.h"
#include "book/anniversary_book.h"
#include "days/calendar_window.h"
#include "help/help_desk.h"
#include "media/cd_window.h"
#include "settings_ui/settings_window.h"
#include "shell/main_window.h"

namespace tickwell::app {

/// The help for a modal window: it stays usable while that window is open.
class UnblockedHelp : public HelpViewer {
public:
    /// `desk` outlives this object.
    explicit UnblockedHelp(help::HelpDesk& desk) : m_desk(desk) {}
    void ShowTopic(int topic) override;

private:
    help::HelpDesk& m_desk;
};

/// Event filter that calls `hidden` when a watched window was hidden.
class HideWatch : public QObject {
public:
    explicit HideWatch(std::function<void()> hidden) : m_hidden(std::move(hidden)) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> m_hidden;
};

/// The windows other than the main one: created on demand, at most one of each, near the main window,
/// above other programs' windows if the settings say so, and destroyed when they are closed.
class Windows {
public:
    explicit Windows(const WindowsParts& parts);
    ~Windows();
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    /// Functions that open them, for the main window's menu. Not to be called before SetMainWindow or after
    /// this object is destroyed.
    shell::OtherWindows Openers();

    void OpenCalendar();
    /// Opens it on a day. An open one is only brought to the front while days are being marked in it.
    void OpenCalendarOn(QDate day);
    void OpenCdPlayer();
    /// Opens the help at its beginning; it stays usable while a modal window is open.
    void OpenHelp() { m_settingsHelp.ShowTopic(kHelpContents); }

    HelpViewer& Help() { return m_help; }
    DayFileJobs& DayFiles() { return m_dayFiles; }

    /// Whether the calendar shows marks of days that are not stored yet.
    bool IsMarking() const { return m_calendar != nullptr && m_calendar->IsMarking(); }
    /// Shows again what depends on the day database.
    void DaysChanged();
    /// Moves a window that is about to be shown near the main one.
    void Place(QWidget& window);

    /// The window beside which the others open; it outlives them.
    void SetMainWindow(shell::Form1& mainWindow);

private:
    template <typename Window, typename Make>
    void Open(QPointer<Window>& window, Make make);
    days::BookWindows Book();
    std::unique_ptr<settings_ui::Form2> MakeSettings();
    settings_ui::HolidayListOperations HolidayList();
    settings_ui::ExchangeOperations Exchange();
    void DaysReplaced();
    void RefreshCalendar();

    WindowsParts m_parts;
    HideWatch m_hideWatch{m_parts.gone};
    shell::Form1* m_mainWindow = nullptr;
    help::HelpDesk m_help;
    UnblockedHelp m_settingsHelp{m_help};
    QPointer<frmAbout> m_about;
    days::DayList m_dayList;
    QPointer<days::Form5> m_calendar;
    QPointer<settings_ui::Form2> m_settings;
    QPointer<media::CDForm> m_cdPlayer;
    DayFileJobs m_dayFiles;
    BackupDesk m_backups;
};

}  // namespace tickwell::app
