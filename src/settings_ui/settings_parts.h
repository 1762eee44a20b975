// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <functional>

#include "core/display.h"
#include "core/handlers.h"
#include "core/ports/autostart.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/timer.h"
#include "core/settings.h"

class QWidget;

namespace tickwell::settings_ui {

/// Immediate operations of the settings dialog on the official list of days off.
struct HolidayListOperations {
    std::function<QString()> status;  ///< one line about the stored list
    std::function<bool()> isKept;     ///< whether a list is stored that could be removed
    /// Reads a list from a file and stores it; returns a report for the user. Throws RunTimeError, and then
    /// keeps the previous list.
    std::function<QString(const QString& path)> replace;
    std::function<void()> remove;  ///< throws RunTimeError
};

/// Opens the windows for files of anniversaries, modal to `owner`. If empty, their buttons are disabled.
struct ExchangeOperations {
    std::function<void(QWidget* owner)> read;
    std::function<void(QWidget* owner)> write;
};

/// A backup of the day database in the list of the settings dialog.
struct BackupRow {
    QDate day;
    qint64 size = 0;  ///< bytes
};

/// Immediate operations of the settings dialog on backups. Those with `done` return at once; at the end they
/// notify the user and call it. They throw RunTimeError, without calling it, if they cannot start. Empty ones
/// disable their buttons.
struct BackupOperations {
    std::function<QList<BackupRow>()> list;  ///< the newest first
    std::function<void(QDate day, std::function<void()> done)> restore;
    /// Writes everything to a new folder in `folder`.
    std::function<void(const QString& folder, std::function<void()> done)> writeAll;
    /// Takes over everything from a folder that was written.
    std::function<void(const QString& folder, std::function<void()> done)> readAll;
};

/// What the settings dialog shows and does about the merge with other computers.
struct SyncOperations {
    std::function<QString()> status = [] { return QString(); };  ///< a few lines; empty while it is off
    std::function<void()> mergeNow = [] {};                      ///< begins a merge and returns
    /// `changed` is called whenever the status has changed; an empty function ends that.
    std::function<void(std::function<void()> changed)> listen = [](const std::function<void()>&) {};
};

/// Functions of the program that the settings dialog calls.
struct SettingsOperations {
    /// Applies the changed settings to the main window. Throws RunTimeError.
    std::function<void()> apply;
    /// Called with true after OK has applied: today's names and the date are queried again.
    std::function<void(bool)> refresh;
    /// Called with true when the dialog opens and with false when it closes: while it is open, the main
    /// window is not kept on top.
    std::function<void(bool)> holdKeepTop;
    /// Plays the sound of this name once, at this volume in percent. If empty, the buttons for it are
    /// disabled.
    std::function<void(const QString& soundName, qint32 volume)> listen;
    /// Starts compacting the day database and returns. At the end the user is notified and `done` is called.
    /// If a compaction is already running, only replaces `done`. Throws RunTimeError, without calling `done`,
    /// if it cannot start. If empty, the button is disabled.
    std::function<void(std::function<void()> done)> compact;
    HolidayListOperations holidayList;
    /// Whether translucent windows can be seen through on this desktop.
    std::function<bool()> isComposited;
    /// Whether the desktop has a notification area, in which the program can show an icon.
    std::function<bool()> hasTray;
    /// Finds out whether the desktop shows notices; calls `onAnswer` immediately or later.
    std::function<void(std::function<void(bool isThere)> onAnswer)> lookForNotices =
        [](const std::function<void(bool isThere)>& onAnswer) { onAnswer(true); };
    ExchangeOperations exchange = {};
    BackupOperations backups{};
    SyncOperations sync{};
};

/// References that the settings dialog uses; all outlive it.
struct SettingsParts {
    const Displays& displays;
    AppSettings& settings;
    FurtherSettings& further;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    HelpViewer& help;
    Autostart& autostart;
    SettingsOperations operations;
};

}  // namespace tickwell::settings_ui
