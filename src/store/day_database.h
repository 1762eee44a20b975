// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "store/result_set.h"
#include "store/sqlite_connection.h"

namespace tickwell {

struct CompiledSql;

/// The one open connection to the day database, kept for the whole run. It is spoken to in the language that
/// days/sql_parser.h describes; no text of a caller's ever reaches the engine.
class DayDatabase {
public:
    /// Opens `path`, shared and for reading and writing, and looks it over: a database of another kind, a
    /// damaged one, or one without our tables is refused here and not met later. Throws RunTimeError.
    explicit DayDatabase(const QString& path);

    /// Runs a SELECT. Throws SqlError.
    ResultSet RunQuery(const QString& sql);

    /// Runs an INSERT, UPDATE or DELETE, which is on the disk when this returns unless a DayTransaction is
    /// open; how many rows it changed. Throws SqlError; then no row was changed.
    int Execute(const QString& sql);

private:
    friend class DayTransaction;

    SqliteConnection m_connection;
};

/// All statements executed while it lives are stored at once by Commit, or not at all.
class DayTransaction {
public:
    /// Throws SqlError, for one inside another as well. `database` outlives the transaction.
    explicit DayTransaction(DayDatabase& database);

    /// Takes everything back when Commit did not come or failed.
    ~DayTransaction();
    DayTransaction(const DayTransaction&) = delete;
    DayTransaction& operator=(const DayTransaction&) = delete;

    /// Throws SqlError.
    void Commit();

private:
    SqliteConnection& m_connection;
    bool m_isOpen = true;
};

/// Opens `path`; never creates it. Throws RunTimeError with the file's name in the reason.
std::unique_ptr<DayDatabase> OpenDayDatabase(const QString& path);

/// The database of a handle that is null while it is closed; throws RunTimeError then.
DayDatabase& Opened(const std::unique_ptr<DayDatabase>& handle);

}  // namespace tickwell
