// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_recovery.h"

#include <QFileInfo>
#include <QStringList>
#include <array>

#include "core/errors.h"
#include "core/regular_file.h"
#include "store/backup_files.h"
#include "store/day_database_check.h"
#include "store/kept_file.h"
#include "store/log.h"
#include "store/shared_file_lock.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

/// The preferred copy first.
QStringList Copies(const DayFiles& files) {
    return {files.copy, files.target};
}

constexpr std::array kJournals{"-journal"_L1, "-wal"_L1, "-shm"_L1};

bool AnythingIsLeft(const DayFiles& files) {
    for (const QString& copy : Copies(files)) {
        if (EntryExists(copy)) {
            return true;
        }
        for (const QLatin1StringView journal : kJournals) {
            if (EntryExists(copy + journal)) {
                return true;
            }
        }
    }
    return false;
}

bool IsSound(const QString& path) {
    try {
        SqliteConnection copy(path, FileUse::LookOver);
        CheckDayDatabase(copy);
        return true;
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << path << "cannot be used:" << error.Detail();
        return false;
    }
}

void RemoveCopies(StoreDisk& disk, const DayFiles& files) {
    SqliteConnection live(files.live);  // fails while another program compacts it
    CheckDayDatabase(live);
    RemoveSecondNames(files.live, disk);
    for (const QString& copy : Copies(files)) {
        RemoveWithJournals(disk, copy);
    }
}

void PutBack(StoreDisk& disk, const DayFiles& files) {
    SharedFileLock lock(files.live);
    lock.TakeExclusive();
    if (!EntryExists(files.live)) {  // another instance may have been faster
        PutBackLiveFile(disk, files);
    }
}

}  // namespace

void RecoverDayDatabase(const ProgramFolder& folder) {
    PosixStoreDisk disk;
    RecoverDayDatabase(folder, disk);
}

void RecoverDayDatabase(const ProgramFolder& folder, StoreDisk& disk) {
    const DayFiles files = FindDayFiles(folder);
    if (!AnythingIsLeft(files)) {
        return;
    }
    try {
        if (!EntryExists(folder.PathOf(kLiveFile))) {
            PutBack(disk, files);
        }
        RemoveCopies(disk, files);
    } catch (const RunTimeError& error) {
        // Not fatal: opening the database will show whether it is usable.
        qCWarning(StoreLog).noquote() << "the recovery of the day database is incomplete:" << error.Detail();
    }
}

void PutBackLiveFile(StoreDisk& disk, const DayFiles& files) {
    for (const QString& copy : Copies(files)) {
        if (IsSound(copy)) {
            RemoveJournals(disk, files.live);
            RenameSafely(disk, copy, files.live);
            return;
        }
    }
}

void RemoveJournals(StoreDisk& disk, const QString& path) {
    for (const QLatin1StringView journal : kJournals) {
        disk.Remove(path + journal);
    }
}

void RemoveWithJournals(StoreDisk& disk, const QString& path) {
    disk.Remove(path);
    RemoveJournals(disk, path);
}

void RemoveAfterFailure(StoreDisk& disk, const QString& path) {
    try {
        RemoveWithJournals(disk, path);
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "a file is left over:" << error.Detail();
    }
}

QString WithNamedCopies(const ProgramFolder& folder, const QString& reason) {
    QStringList names;
    for (const QString& copy : Copies(FindDayFiles(folder))) {
        if (EntryExists(copy)) {
            names.append(folder.Shortened(copy));
        }
    }
    if (const QList<Backup> backups = FindBackups(folder); !backups.isEmpty()) {
        names.append(folder.Shortened(BackupPath(folder, backups.first().day)));
    }
    return names.isEmpty() ? reason
                           : reason + u"\r\nデータベースの控えが残っています：%1"_s.arg(names.join(u"、"_s));
}

}  // namespace tickwell::store
