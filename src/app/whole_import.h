// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include "core/program_folder.h"
#include "store/compaction.h"
#include "store/store_disk.h"

namespace tickwell::app {

// Everything that an export wrote is taken over in three steps. The first copies and checks all files; it
// ends by giving their folder the name ".Import.ready", and from then on the import is decided. The second
// replaces all files but the settings, each at once, and the third, at the next start of the program, the
// rest: the settings, and whatever a killed program did not get to. Each file that is replaced is kept beside
// the new one as "NAME.before-restore.SUFFIX", or with a number.

/// First step: copies the files of the exported folder `source` and checks the copies as the program does
/// when it opens them. Throws RunTimeError that names the file; nothing has changed then. Can run on any
/// thread.
void StageImport(const ProgramFolder& folder, const QString& source, store::StoreDisk& disk);

/// Second step, between BeginCompaction and EndCompaction: replaces the day database and opens it, and
/// replaces timers and alarms, which must not be open, and the official list of days off. If the day database
/// cannot be replaced, the import is given up and nothing has changed.
store::CompactionEnd ApplyImport(const ProgramFolder& folder, store::StoreDisk& disk);

/// Gives up an import that was staged.
void DropImport(const ProgramFolder& folder);

/// Last step, at the start of the program before any of the files is opened: replaces what was staged,
/// including the file of the settings, whose path is `settings`. Does nothing if nothing was staged. Throws
/// RunTimeError; what is left is tried again at the next start.
void FinishImport(const ProgramFolder& folder, const QString& settings, store::StoreDisk& disk);

/// Where a staged import lies.
QString StagedImport(const ProgramFolder& folder);

}  // namespace tickwell::app
