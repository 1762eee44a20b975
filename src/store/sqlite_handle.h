// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sqlite3.h>

#include <memory>

namespace tickwell::store {

struct SqliteCloser {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};

/// An open database. To be closed after its statements are finalized.
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;

struct SqliteFinalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// A prepared statement.
using SqliteStatementHandle = std::unique_ptr<sqlite3_stmt, SqliteFinalizer>;

}  // namespace tickwell::store
