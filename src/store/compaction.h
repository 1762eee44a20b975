// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "core/ports/message_boxes.h"
#include "core/program_folder.h"
#include "store/day_database.h"
#include "store/store_disk.h"

namespace tickwell::store {

// Compaction makes the file of the day database as small as its rows allow. A complete DayDate.mdb, old or
// new, exists at every moment, so no failure and no killed program loses a row; RecoverDayDatabase cleans up
// after a killed program. If another program has the database open, compaction fails and changes nothing. It
// takes seconds for a million rows, so its second step can run on any thread.

/// The result of a compaction, or of a backup that was restored.
struct CompactionEnd {
    std::optional<Message> report;  ///< the box that reports success or failure
    QString fault;            ///< why it could not begin, or why the file could not be reopened; may be empty
    DayDatabase dayDatabase;  ///< opens later if the file could not be opened now
};

/// First step: closes `dayDatabase` and makes `folder` the current folder. Throws RunTimeError if that folder
/// cannot be entered; `dayDatabase` is then unchanged.
void BeginCompaction(DayDatabase& dayDatabase, const ProgramFolder& folder);

/// Second step: compacts the day database of `folder` and opens it. Nothing else may use the database
/// in the meantime.
CompactionEnd CompactDayFile(const ProgramFolder& folder, StoreDisk& disk);

/// Opens the database of `folder` again; `end` tells a failure.
void ReopenDayFile(const ProgramFolder& folder, CompactionEnd& end);

/// Last step: hands over the database and shows the report in a box of `owner`, which is a window or null.
/// Throws RunTimeError with the fault.
void EndCompaction(DayDatabase& dayDatabase, CompactionEnd end, MessageBoxes& boxes, const QObject* owner);

/// All three steps, for a caller that may block.
void CompactDayDatabase(DayDatabase& dayDatabase, const ProgramFolder& folder, MessageBoxes& boxes,
                        StoreDisk& disk, const QObject* owner = nullptr);

}  // namespace tickwell::store
