// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/compaction.h"

#include <QFileInfo>

#include "core/errors.h"
#include "store/compaction_report.h"
#include "store/day_database_check.h"
#include "store/day_files.h"
#include "store/day_recovery.h"
#include "store/log.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

/// Opens the undamaged live file with the exclusive lock; null if that fails, and then nothing was changed.
std::unique_ptr<SqliteConnection> WholeLiveFile(const QString& path) {
    try {
        auto live = std::make_unique<SqliteConnection>(path);
        CheckDayDatabase(*live);  // first: SQLite would turn an empty file into a database when it locks it
        live->TakeExclusive();
        return live;
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote()
            << "no compaction, the file is not usable or not ours alone:" << error.Detail();
        return nullptr;
    }
}

/// A file that cannot be removed makes the next step fail, or is left to the next start.
void RemoveTarget(StoreDisk& disk, const DayFiles& files) {
    try {
        RemoveWithJournals(disk, files.target);
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "a compacted file is left over:" << error.Detail();
    }
}

/// Renames the safety copy back to the live file. Once that copy has been removed, the compacted file is the
/// only one and is kept.
void Restore(StoreDisk& disk, const DayFiles& files) {
    try {
        if (QFileInfo::exists(files.copy)) {
            RenameSafely(disk, files.copy, files.live);
        } else if (!QFileInfo::exists(files.live)) {
            PutBackLiveFile(disk, files);
        }
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "the next start recovers the day database:" << error.Detail();
    }
    if (QFileInfo::exists(files.live)) {
        RemoveTarget(disk, files);
    }
}

/// SQLite also reports success if the disk did not store the file as written.
void CheckCompacted(const QString& path) {
    SqliteConnection compacted(path, FileUse::LookOver);
    CheckDayDatabase(compacted);
}

Message Compact(StoreDisk& disk, const DayFiles& files) {
    const qint32 before = disk.Size(files.live);
    const auto live =
        WholeLiveFile(files.live);  // held during the replacement, so that no program writes to the old file
    if (live == nullptr) {
        return CompactionFailed();
    }
    RemoveTarget(disk, files);
    RemoveWithJournals(disk, files.copy);
    disk.Copy(*live, files.copy);
    try {
        disk.Compact(*live, files.target);
        CheckCompacted(files.target);
        RenameSafely(disk, files.target, files.live);
        disk.Remove(files.copy);
        return CompactionDone(before, disk.Size(files.live));
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "the compaction failed:" << error.Detail();
        Restore(disk, files);
        return CompactionFailed();
    }
}

}  // namespace

void BeginCompaction(DayDatabase& dayDatabase, const ProgramFolder& folder) {
    folder.Enter();
    dayDatabase.Close();
}

/// A failure becomes the fault of `end` unless it already has one.
void ReopenDayFile(const ProgramFolder& folder, CompactionEnd& end) {
    const QString path = folder.PathOf(kLiveFile);
    try {
        end.dayDatabase = DayDatabase(path, kLiveFile);
    } catch (const RunTimeError& error) {
        end.dayDatabase = DayDatabase::OpenLater(path, kLiveFile);
        if (end.fault.isEmpty()) {
            end.fault = error.Reason() + u"\r\n使えるようになりしだい、開き直します。"_s;
        }
    }
}

CompactionEnd CompactDayFile(const ProgramFolder& folder, StoreDisk& disk) {
    CompactionEnd end;
    try {
        end.report = Compact(disk, FindDayFiles(folder));
    } catch (const RunTimeError& error) {
        end.fault = folder.Shortened(error.Reason());
    }
    ReopenDayFile(folder, end);
    return end;
}

void EndCompaction(DayDatabase& dayDatabase, CompactionEnd end, MessageBoxes& boxes, const QObject* owner) {
    dayDatabase = std::move(end.dayDatabase);
    if (end.report) {
        boxes.Show(owner, *end.report, [] {});
    }
    if (!end.fault.isEmpty()) {
        throw RunTimeError(end.fault);
    }
}

void CompactDayDatabase(DayDatabase& dayDatabase, const ProgramFolder& folder, MessageBoxes& boxes,
                        StoreDisk& disk, const QObject* owner) {
    BeginCompaction(dayDatabase, folder);
    EndCompaction(dayDatabase, CompactDayFile(folder, disk), boxes, owner);
}

}  // namespace tickwell::store
