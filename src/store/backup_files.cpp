// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/backup_files.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "store/backup_days.h"

namespace tickwell::store {

QString FolderOfBackups(const ProgramFolder& folder) {
    return folder.PathOf(kBackupFolder);
}

QString BackupPath(const ProgramFolder& folder, QDate day) {
    return FolderOfBackups(folder) + u'/' + BackupName(day);
}

QList<Backup> FindBackups(const ProgramFolder& folder) {
    QList<Backup> backups;
    const QFileInfoList files = QDir(FolderOfBackups(folder)).entryInfoList(QDir::Files);
    for (const QFileInfo& file : files) {
        if (const auto day = DayOfBackup(file.fileName())) {
            backups.append({*day, file.size()});
        }
    }
    std::sort(backups.begin(), backups.end(),
              [](const Backup& one, const Backup& other) { return one.day > other.day; });
    return backups;
}

}  // namespace tickwell::store
