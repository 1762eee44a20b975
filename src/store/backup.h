// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include "core/program_folder.h"
#include "store/backup_files.h"
#include "store/compaction.h"
#include "store/store_disk.h"

namespace tickwell::store {

// Backups of the day database are complete database files in the folder "Backup" of the program's folder, one
// per day. They are written under a temporary name and renamed when they have been checked, so a file with
// the name of a backup is complete; what a killed program left is removed before the next backup is written.

/// Writes the backup of `day`, unless there is an undamaged one of that day already or the newest one before
/// contains the same rows; then removes those that SurplusBackups names. Returns whether one was written.
/// Throws RunTimeError with file and reason; all other backups are unchanged then. Can run on any thread
/// while the database is in use: writers wait until its rows were read.
bool TakeBackup(const ProgramFolder& folder, QDate day, StoreDisk& disk);

/// Writes an undamaged, compact copy of the open database `from`, checked by `check`, to the new file `to`.
/// Throws RunTimeError; there is then no new file.
void WriteCheckedCopy(SqliteConnection& from, const QString& to, void (&check)(SqliteConnection& connection),
                      StoreDisk& disk);

/// Replaces the day database by a copy of `source`, which is checked as at the start of the program. The
/// present file is kept beside it under a new name, "DayDate.before-restore.mdb" or with a number; returns
/// its absolute path. A complete DayDate.mdb exists at every moment. Throws RunTimeError, and then it is
/// unchanged. The database must be closed, and nothing else may use it in the meantime.
QString ReplaceDayFile(const ProgramFolder& folder, const QString& source, StoreDisk& disk);

/// The second step of restoring the backup of `day`, between BeginCompaction and EndCompaction: replaces the
/// day database and opens it again.
CompactionEnd RestoreBackup(const ProgramFolder& folder, QDate day, StoreDisk& disk);

}  // namespace tickwell::store
