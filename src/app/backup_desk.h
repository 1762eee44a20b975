// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "app/day_file_jobs.h"
#include "core/ports/clock.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::app {

/// What the operations on backups work with; all but `folder` outlive them.
struct BackupDeskParts {
    ProgramFolder folder;
    DayFileJobs& jobs;
    MessageBoxes& boxes;
    Handlers& handlers;
    const Clock& clock;
    std::function<const QObject*()> owner;  ///< of the boxes: the settings dialog, or null
    std::function<bool()> isMarking;        ///< whether days are being marked in the calendar
    std::function<void()> daysReplaced;     ///< called after another day database has taken its place
    std::function<void()> saveSettings;     ///< throws RunTimeError
    /// The first is called before the files of timers, alarms and days off are replaced, and closes them; the
    /// second afterwards, and reads them again.
    std::function<void()> closeTools;
    std::function<void()> openTools;
};

/// What the settings dialog can do with backups: restores one, and writes or reads everything.
class BackupDesk {
public:
    explicit BackupDesk(BackupDeskParts parts) : m_parts(std::move(parts)) {}

    settings_ui::BackupOperations Operations();

private:
    using Done = std::function<void()>;

    void RefuseWhileMarking() const;
    void Restore(QDate day, Done done);
    void WriteAll(const QString& target, Done done);
    void ReadAll(const QString& source, Done done);
    void ApplyStaged(const Done& done);
    void Show(MessageIcon icon, const QString& title, const QString& text) const;

    BackupDeskParts m_parts;
};

}  // namespace tickwell::app
