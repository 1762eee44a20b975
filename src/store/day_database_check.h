// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/sqlite_connection.h"

namespace tickwell {

/// Whether the open file is a day database that this program can work with, whole and undamaged. The engine
/// itself opens anything and fails at the first use. Throws RunTimeError.
void CheckDayDatabase(SqliteConnection& connection);

}  // namespace tickwell
