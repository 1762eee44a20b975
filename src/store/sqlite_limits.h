// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace tickwell {

/// Limits what the file of an open connection can make SQLite do: triggers, views and check constraints of
/// its own do not run, no value is longer than 1 MB, and all connections of the process together get at most
/// 96 MB of memory; what needs more fails with SQLITE_TOOBIG or SQLITE_NOMEM. To be called before anything is
/// read from the file. Throws SqlError.
void LimitSqlite(sqlite3* handle);

}  // namespace tickwell
