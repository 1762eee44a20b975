// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_recovery.h"

#include <QFileInfo>
#include <QStringList>
#include <array>

#include "core/errors.h"
#include "store/day_database_check.h"
#include "store/log.h"
#include "store/shared_file_lock.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// The preferred copy first.
QStringList Copies(const DayFiles& files) {
    return {files.copy, files.target};
}

constexpr std::array kJournals{"-journal"_L1, "-wal"_L1, "-shm"_L1};

/// True for a dangling link too: its target may reappear.
bool IsThere(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

bool AnythingIsLeft(const DayFiles& files) {
    for (const QString& copy : Copies(files)) {
        if (IsThere(copy)) {
            return true;
        }
        for (const QLatin1StringView journal : kJournals) {
            if (IsThere(copy + journal)) {
                return true;
            }
        }
    }
    return false;
}

void RemoveJournals(CompactionDisk& disk, const QString& path) {
    for (const QLatin1StringView journal : kJournals) {
        disk.Remove(path + journal);
    }
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

void RemoveCopies(CompactionDisk& disk, const DayFiles& files) {
    SqliteConnection live(files.live);  // fails while someone else compacts it
    CheckDayDatabase(live);
    for (const QString& copy : Copies(files)) {
        RemoveWithJournals(disk, copy);
    }
}

void PutBack(CompactionDisk& disk, const DayFiles& files) {
    SharedFileLock lock(files.live);
    lock.TakeExclusive();
    if (!IsThere(files.live)) {  // another instance may have been faster
        PutBackLiveFile(disk, files);
    }
}

}  // namespace

void RecoverDayDatabase(const ProgramFolder& folder) {
    PosixCompactionDisk disk;
    RecoverDayDatabase(folder, disk);
}

void RecoverDayDatabase(const ProgramFolder& folder, CompactionDisk& disk) {
    const DayFiles files = FindDayFiles(folder);
    if (!AnythingIsLeft(files)) {
        return;
    }
    try {
        if (!IsThere(folder.PathOf(kLiveFile))) {
            PutBack(disk, files);
        }
        RemoveCopies(disk, files);
    } catch (const RunTimeError& error) {
        // Opening the database shows whether it is usable nevertheless.
        qCWarning(StoreLog).noquote() << "the recovery of the day database is incomplete:" << error.Detail();
    }
}

void PutBackLiveFile(CompactionDisk& disk, const DayFiles& files) {
    for (const QString& copy : Copies(files)) {
        if (IsSound(copy)) {
            RemoveJournals(disk, files.live);
            disk.Rename(copy, files.live);
            return;
        }
    }
}

void RemoveWithJournals(CompactionDisk& disk, const QString& path) {
    disk.Remove(path);
    RemoveJournals(disk, path);
}

QString WithNamedCopies(const ProgramFolder& folder, const QString& reason) {
    QStringList names;
    for (const QString& copy : Copies(FindDayFiles(folder))) {
        if (IsThere(copy)) {
            names.append(folder.Shortened(copy));
        }
    }
    return names.isEmpty() ? reason
                           : reason + u"\r\nデータベースの控えが残っています：%1"_s.arg(names.join(u"、"_s));
}

}  // namespace tickwell
