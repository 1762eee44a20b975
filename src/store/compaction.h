// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "core/ports/message_boxes.h"
#include "store/compaction_disk.h"
#include "store/day_database.h"

namespace tickwell {

/// Makes the day database of `folder` as small as its rows allow, and tells in one box how much that gave, or
/// that it failed. `folder` becomes the current one.
///
/// `dayDatabase` is closed meanwhile and opened again whatever happened: it is another object afterwards. At
/// every moment there is a whole DayDate.mdb, the old one or the new one, and whatever fails, or ends the
/// program, costs no row; RecoverDayDatabase tidies up after the latter. Another program that has the
/// database open makes it fail with nothing touched.
///
/// Throws RunTimeError where it could not even begin, because the file is missing or could not be copied, and
/// where the database could not be opened again: then `dayDatabase` is null.
void CompactDayDatabase(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder,
                        MessageBoxes& boxes);

/// The same on a given disk.
void CompactDayDatabase(std::unique_ptr<DayDatabase>& dayDatabase, const QString& folder, MessageBoxes& boxes,
                        CompactionDisk& disk);

}  // namespace tickwell
