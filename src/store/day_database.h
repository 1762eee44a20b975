// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "store/found_row.h"
#include "store/result_set.h"
#include "store/sqlite_connection.h"

namespace tickwell {

/// Compares unequal once a row may have been changed: by this program, by another one, or while the database
/// was closed.
struct ChangeMark {
    quint64 connection = 0;
    QString dataVersion;
    qint64 ownChanges = 0;

    bool operator==(const ChangeMark&) const = default;
};

/// A column of the schema, and what is to be stored in it.
struct ColumnValue {
    QStringView column;
    BoundValue value;
};

/// The one connection to the day database, kept for the whole run. It is spoken to in the language that
/// store/sql_parser.h describes; no text of a caller ever reaches SQLite.
///
/// It is open from its construction on, except one that ClosedDayDatabase made: that one opens with the first
/// statement for which this is possible, without waiting for another program's lock.
class DayDatabase {
public:
    /// Opens `path`, shared and for reading and writing, and looks it over: a database of another kind, a
    /// damaged one, or one without our tables is refused here and not met later. Throws RunTimeError.
    explicit DayDatabase(const QString& path);

    /// Opens the file if it is not open yet; false if that failed. The reason is logged when it is a new one.
    bool TryOpen();

    /// Runs a SELECT. Throws SqlError.
    ResultSet RunQuery(const QString& sql);

    /// Runs a SELECT as far as its first `most` rows, which takes no longer if a million follow. Throws
    /// SqlError.
    ResultSet RunQueryForFirst(int most, const QString& sql);

    /// Runs an INSERT, UPDATE or DELETE, which is on the disk when this returns unless a DayTransaction is
    /// open; how many rows it changed. Throws SqlError; then no row was changed.
    int Execute(const QString& sql);

    /// A row of `table`, which a RowSearch found; nothing if it was changed or deleted since. Throws
    /// RunTimeError.
    std::optional<ResultRow> ReadRow(QStringView table, const FoundRow& row);

    /// Change one row by its key, whatever stands in it: for rows of which the language cannot speak. Throws
    /// SqlError.
    void DeleteRow(QStringView table, qint64 key);
    void ChangeRow(QStringView table, qint64 key, const std::vector<ColumnValue>& values);

    /// Throws SqlError.
    ChangeMark Mark();

    /// A DayTransaction is open.
    bool IsInTransaction() const { return m_connection && m_connection->IsInTransaction(); }

private:
    friend class DayTransaction;
    friend class LargeCache;
    friend class RowSearch;
    friend std::unique_ptr<DayDatabase> ClosedDayDatabase(const QString& path);

    DayDatabase() = default;
    void Open(LockedOpening opening);
    SqliteConnection& Connection();
    void RunOnRow(const QByteArray& sql, qint64 key, const std::vector<ColumnValue>& values);

    QString m_path;
    QString m_loggedReason;
    std::optional<SqliteConnection> m_connection;  // empty while the file could not be opened
    quint64 m_serial = 0;                          // another one for each opening
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

/// A database that opens itself when it is first needed: for a file that could not be opened just now.
std::unique_ptr<DayDatabase> ClosedDayDatabase(const QString& path);

/// The database of a handle that is null while a compaction replaces its file; throws RunTimeError then.
DayDatabase& Opened(const std::unique_ptr<DayDatabase>& handle);

}  // namespace tickwell
