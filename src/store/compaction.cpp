// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/compaction.h"

#include <QDir>
#include <QFileInfo>

#include "core/errors.h"
#include "store/compaction_report.h"
#include "store/day_database_check.h"
#include "store/day_files.h"
#include "store/day_recovery.h"

namespace tickwell {

namespace {

/// The sound live file, to ourselves; null where that is not to be had, and then nothing was touched.
std::unique_ptr<SqliteConnection> WholeLiveFile() {
    try {
        auto live = std::make_unique<SqliteConnection>(kLiveFile);
        CheckDayDatabase(*live);  // first: the engine makes a database of an empty file that it takes
        live->TakeWhole();
        return live;
    } catch (const RunTimeError&) {
        return nullptr;
    }
}

/// What cannot be removed makes the next step fail, or is left to the next start.
void RemoveTarget(CompactionDisk& disk) {
    try {
        RemoveWithJournals(disk, kCompactionTarget);
    } catch (const RunTimeError&) {
        return;
    }
}

/// The safety copy becomes the live file again. Once it was removed, the compacted file is the only one, and
/// is kept.
void Restore(CompactionDisk& disk) {
    try {
        if (QFileInfo::exists(kSafetyCopy)) {
            disk.Rename(kSafetyCopy, kLiveFile);
        } else if (!QFileInfo::exists(kLiveFile)) {
            PutBackLiveFile(disk);
        }
    } catch (const RunTimeError&) {
        // The live file, old or new, stands, and its copy goes with the next start.
    }
    if (QFileInfo::exists(kLiveFile)) {
        RemoveTarget(disk);
    }
}

Message Compact(CompactionDisk& disk) {
    const qint32 before = disk.Size(kLiveFile);
    const auto live = WholeLiveFile();  // also while it is replaced: nobody writes into the old one unseen
    if (live == nullptr) {
        return CompactionFailed();
    }
    RemoveTarget(disk);
    RemoveWithJournals(disk, kSafetyCopy);
    disk.Copy(*live, kSafetyCopy);
    try {
        disk.Compact(*live, kCompactionTarget);
        disk.Rename(kCompactionTarget, kLiveFile);
        disk.Remove(kSafetyCopy);
        return CompactionDone(before, disk.Size(kLiveFile));
    } catch (const RunTimeError&) {
        Restore(disk);
        return CompactionFailed();
    }
}

/// After an error that is the one to be told.
void OpenQuietly(std::unique_ptr<DayDatabase>& dayDatabase) {
    try {
        dayDatabase = OpenDayDatabase(kLiveFile);
    } catch (const RunTimeError&) {
        dayDatabase = nullptr;
    }
}

}  // namespace

void CompactDayDatabase(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder,
                        MessageBoxes& boxes) {
    PosixCompactionDisk disk;
    CompactDayDatabase(dayDatabase, folder, boxes, disk);
}

void CompactDayDatabase(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder, MessageBoxes& boxes,
                        CompactionDisk& disk) {
    if (!QDir::setCurrent(folder)) {
        throw RunTimeError(folder);
    }
    dayDatabase.reset();
    try {
        boxes.Show(Compact(disk), [] {});
    } catch (...) {
        OpenQuietly(dayDatabase);
        throw;
    }
    dayDatabase = OpenDayDatabase(kLiveFile);
}

}  // namespace tickwell
