// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/sqlite_connection.h"

namespace tickwell::store {

/// Checks that the open file is an undamaged day database that this program can use. SQLite itself opens any
/// file and fails only at the first use. Throws RunTimeError.
void CheckDayDatabase(SqliteConnection& connection);

}  // namespace tickwell::store
