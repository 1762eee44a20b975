// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace tickwell::store {

/// Limits what the file of an open connection can make SQLite do: its triggers, views and check constraints
/// are disabled, no value may exceed 1 MB, and all connections of the process together may use 96 MB of
/// memory; beyond that, statements fail with SQLITE_TOOBIG or SQLITE_NOMEM. To be called before anything is
/// read from the file. Throws SqlError.
void LimitSqlite(sqlite3* handle);

}  // namespace tickwell::store
