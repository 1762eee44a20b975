// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/compaction_disk.h"

namespace tickwell {

/// Tidies up in the current folder after a compaction that was ended from outside. Beside a sound DayDate.mdb
/// its copies are removed; in place of a missing one comes a sound CopyDate.mdb, else a sound BUDate.mdb.
/// Where it is there but unsound, or nothing is sound, nothing is touched, and opening it says what is wrong.
/// To be called once, before the database is looked for.
void RecoverDayDatabase();

/// The same on a given disk.
void RecoverDayDatabase(CompactionDisk& disk);

/// Puts a sound copy in place of the missing live file, for one who has the whole lock. Throws RunTimeError.
void PutBackLiveFile(CompactionDisk& disk);

/// Removes a file and what an engine may have left beside it: the journal of a file that is gone would be
/// played into the next one of its name. Throws RunTimeError.
void RemoveWithJournals(CompactionDisk& disk, const QString& path);

/// Names the copies that stand in the current folder, as a line to add to `reason`; `reason` alone where
/// there are none.
QString WithNamedCopies(const QString& reason);

}  // namespace tickwell
