// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/sqlite_connection.h"

namespace tickwell::store {

/// Whether two open and checked day databases contain the same rows, in the same order of insertion. Reads
/// both, but keeps no more than one row of each. Throws SqlError.
bool HaveSameRows(SqliteConnection& one, SqliteConnection& other);

}  // namespace tickwell::store
