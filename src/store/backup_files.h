// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QLatin1StringView>
#include <QList>
#include <QString>

#include "core/program_folder.h"

namespace tickwell::store {

inline constexpr QLatin1StringView kBackupFolder("Backup");

/// One backup.
struct Backup {
    QDate day;
    qint64 size = 0;  ///< bytes
};

/// The backups of `folder`, the newest first; none if there is no such folder.
QList<Backup> FindBackups(const ProgramFolder& folder);

/// The absolute path of the backup of a day.
QString BackupPath(const ProgramFolder& folder, QDate day);

/// The absolute path of the folder of backups, which may not exist.
QString FolderOfBackups(const ProgramFolder& folder);

}  // namespace tickwell::store
