// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/backup.h"

#include <QDir>
#include <QFileInfo>

#include "core/regular_file.h"
#include "store/backup_days.h"
#include "store/day_database_check.h"
#include "store/day_recovery.h"
#include "store/log.h"
#include "store/row_comparison.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

// One name: a program folder has one program, which writes one backup at a time.
constexpr auto kUnfinished = ".DayDate.mdb.unfinished-backup"_L1;

void MakeFolder(const ProgramFolder& folder, StoreDisk& disk) {
    const QString path = FolderOfBackups(folder);
    if (QFileInfo(path).isDir()) {
        return;
    }
    if (!QDir().mkdir(path)) {
        throw FileError(u"フォルダーを作れません。"_s, path,
                        EntryExists(path) ? u"同じ名前のファイルがあります。"_s
                                          : u"書き込む権限があるかどうか、確かめてください。"_s);
    }
    disk.Sync(folder.Path());
}

/// An open, undamaged backup; null if it is damaged, which is logged.
std::unique_ptr<SqliteConnection> SoundBackup(const QString& path) {
    try {
        auto backup = std::make_unique<SqliteConnection>(path, FileUse::LookOver);
        CheckDayDatabase(*backup);
        return backup;
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << path << "is a damaged backup:" << error.Detail();
        return nullptr;
    }
}

/// Whether the backups have all rows of the open database, or one of that day.
bool IsSettled(const ProgramFolder& folder, QDate day, SqliteConnection& live) {
    for (const Backup& backup : FindBackups(folder)) {
        if (backup.day > day) {
            continue;
        }
        if (const auto newest = SoundBackup(BackupPath(folder, backup.day))) {
            return backup.day == day || HaveSameRows(*newest, live);
        }
    }
    return false;
}

void Finish(const QString& unfinished, const QString& path, StoreDisk& disk) {
    try {
        RenameSafely(disk, unfinished, path);
    } catch (const RunTimeError&) {
        RemoveAfterFailure(disk, unfinished);
        throw;
    }
}

/// The new backup is on the disk, so a failure here only leaves one too many.
void RemoveSurplus(const ProgramFolder& folder, QDate made, StoreDisk& disk) {
    QList<QDate> days;
    for (const Backup& backup : FindBackups(folder)) {
        days.append(backup.day);
    }
    for (const QDate day : SurplusBackups(days, made)) {
        try {
            disk.Remove(BackupPath(folder, day));
        } catch (const RunTimeError& error) {
            qCWarning(StoreLog).noquote() << "an old backup is left:" << error.Detail();
        }
    }
}

}  // namespace

void WriteCheckedCopy(SqliteConnection& from, const QString& to, void (&check)(SqliteConnection& connection),
                      StoreDisk& disk) {
    try {
        disk.Compact(from, to);
        SqliteConnection copy(to, FileUse::LookOver);
        check(copy);
    } catch (const RunTimeError&) {
        RemoveAfterFailure(disk, to);
        throw;
    }
}

bool TakeBackup(const ProgramFolder& folder, QDate day, StoreDisk& disk) {
    try {
        SqliteConnection live(folder.PathOf(kLiveFile), FileUse::LookOver);
        CheckDayDatabase(live);
        if (IsSettled(folder, day, live)) {
            return false;
        }
        MakeFolder(folder, disk);
        const QString unfinished = FolderOfBackups(folder) + u'/' + kUnfinished;
        RemoveWithJournals(disk, unfinished);
        WriteCheckedCopy(live, unfinished, CheckDayDatabase, disk);
        Finish(unfinished, BackupPath(folder, day), disk);
    } catch (const RunTimeError& error) {
        throw RunTimeError(folder.Shortened(error.Reason()));
    }
    RemoveSurplus(folder, day, disk);
    return true;
}

}  // namespace tickwell::store
