// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/day_files.h"
#include "store/store_disk.h"

namespace tickwell::store {

/// Cleans up `folder` after a compaction that was killed. If DayDate.mdb is undamaged, its copies are
/// removed; if it is missing, an undamaged CopyDate.mdb replaces it, or failing that an undamaged BUDate.mdb.
/// If it is damaged, or no file is undamaged, nothing is changed; opening the database then reports the
/// problem. Call it once, before the database is opened.
void RecoverDayDatabase(const ProgramFolder& folder);

/// The same with the given disk operations.
void RecoverDayDatabase(const ProgramFolder& folder, StoreDisk& disk);

/// Replaces the missing live file by an undamaged copy. The caller holds the exclusive lock. Throws
/// RunTimeError.
void PutBackLiveFile(StoreDisk& disk, const DayFiles& files);

/// Removes the SQLite journals of a file: SQLite would apply a leftover one to the next file of that name.
/// Throws RunTimeError.
void RemoveJournals(StoreDisk& disk, const QString& path);

/// Removes a file and its SQLite journals. Throws RunTimeError.
void RemoveWithJournals(StoreDisk& disk, const QString& path);

/// The same while another error is being reported: a file that cannot be removed is only logged.
void RemoveAfterFailure(StoreDisk& disk, const QString& path);

/// Adds to `reason` a line with the names of the copies in `folder` and of its newest backup; `reason` alone
/// if there are none.
QString WithNamedCopies(const ProgramFolder& folder, const QString& reason);

}  // namespace tickwell::store
