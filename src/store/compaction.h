// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "core/ports/message_boxes.h"
#include "store/compaction_disk.h"
#include "store/day_database.h"

namespace tickwell {

// The compaction of the day database makes its file as small as the rows allow. At every moment there is a
// whole DayDate.mdb, the old one or the new one, and whatever fails, or ends the program, costs no row;
// RecoverDayDatabase tidies up after the latter. Another program that has the database open makes it fail
// with nothing touched. It takes seconds for a million rows, therefore its second step can run on any thread.

/// What a compaction led to.
struct CompactionEnd {
    std::optional<Message> report;  ///< how much it gave, or that it failed
    QString fault;                  ///< why it could not begin, or the file not be opened again; or empty
    std::unique_ptr<DayDatabase> dayDatabase;  ///< never null; a closed one if the file could not be opened
};

/// First step: closes `dayDatabase`, which is null from then on, and makes `folder` the current one. Throws
/// RunTimeError if that folder cannot be entered; `dayDatabase` is then as it was.
void BeginCompaction(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder);

/// Second step: compacts the day database of the current folder, and opens it. Nobody else uses either
/// meanwhile.
CompactionEnd CompactDayFile(CompactionDisk& disk);

/// Last step: hands over the database and shows the report in a box of `owner`, a window, or null. Throws
/// RunTimeError with the fault.
void EndCompaction(std::unique_ptr<DayDatabase>& dayDatabase, CompactionEnd end, MessageBoxes& boxes,
                   const QObject* owner);

/// All three at once, for a caller that may wait.
void CompactDayDatabase(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder, MessageBoxes& boxes,
                        CompactionDisk& disk, const QObject* owner = nullptr);

}  // namespace tickwell
