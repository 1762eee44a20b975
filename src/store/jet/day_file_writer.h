// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/jet/day_rows.h"

namespace tickwell::store {

/// Turns the empty file `path` into a day database with `rows`, then rereads it to check the number of rows.
/// Creates no other file beside it. Not synced: the caller does that once. Throws RunTimeError; the file is
/// then unusable.
void WriteDayFile(const QString& path, const DayRows& rows);

}  // namespace tickwell::store
