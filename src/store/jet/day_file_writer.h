// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/jet/day_rows.h"

namespace tickwell {

/// Makes a day database out of the empty file `path`, fills it with `rows`, and reads the file again to count
/// them. No other file is made beside it. Not synced: the caller does that once. Throws RunTimeError; what
/// the file then holds is of no use.
void WriteDayFile(const QString& path, const DayRows& rows);

}  // namespace tickwell
