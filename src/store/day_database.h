// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "store/found_row.h"
#include "store/result_set.h"
#include "store/sqlite_connection.h"

namespace tickwell::store {

/// Two marks compare unequal if a row may have been changed between them: by this program, by another one, or
/// while the database was closed.
struct ChangeMark {
    quint64 connection = 0;
    QString dataVersion;
    qint64 ownChanges = 0;

    bool operator==(const ChangeMark&) const = default;
};

/// A column of the schema and the value to store in it.
struct ColumnValue {
    QStringView column;
    BoundValue value;
};

/// The program's only connection to the day database, kept for its entire run. It accepts the SQL subset that
/// store/sql_parser.h describes; no text of a caller ever reaches SQLite.
///
/// While it is closed, for instance because a compaction replaces its file, each statement throws
/// RunTimeError. Moving it transfers it to another thread and leaves a closed one behind.
class DayDatabase {
public:
    /// Closed.
    DayDatabase() = default;

    /// Opens `path` for reading and writing with a shared lock, and checks it: a file of another kind, a
    /// damaged one, or one without the program's tables is refused here rather than failing later. Throws
    /// RunTimeError. `shownAs`: its name in error messages; empty for its path.
    explicit DayDatabase(QString path, QString shownAs = {});

    /// For a file that cannot be opened at the moment: each statement tries to open it until that succeeds,
    /// without waiting for another program's lock. It counts as open.
    static DayDatabase OpenLater(const QString& path, const QString& shownAs = {});

    /// Opens `path` for reading only, while others may use it, and checks it. Neither the file nor its folder
    /// is changed, and no statement waits longer than half a second for a lock. Throws RunTimeError.
    static DayDatabase OpenToRead(const QString& path);

    DayDatabase(DayDatabase&& other) noexcept { *this = std::move(other); }
    DayDatabase& operator=(DayDatabase&& other) noexcept;
    ~DayDatabase() = default;

    bool IsOpen() const { return !m_path.isEmpty(); }

    /// No transaction may be open.
    void Close();

    /// Opens the file if OpenLater has deferred that; false if it fails or if this is closed. The reason is
    /// logged unless it was the last one logged.
    bool TryOpen();

    /// Runs a SELECT. Throws SqlError.
    ResultSet RunQuery(const QString& sql);

    /// Runs a SELECT and returns its first `most` rows; the time does not depend on how many more match.
    /// Throws SqlError.
    ResultSet RunQueryForFirst(int most, const QString& sql);

    /// Runs a SELECT and passes each of its rows to `take`, in the order of insertion. For very many rows, if
    /// the caller keeps less of them than a ResultSet would. Reads the entire table. Throws SqlError.
    void ForEachRow(const QString& sql, const std::function<void(const ResultRow&)>& take);

    /// Runs an INSERT, UPDATE or DELETE and returns the number of changed rows. The change is on the disk on
    /// return unless a DayTransaction is open. Throws SqlError; then no row was changed.
    int Execute(const QString& sql);

    /// Reads a row of `table` that a RowSearch found; nullopt if it was changed or deleted since. Throws
    /// RunTimeError.
    std::optional<ResultRow> ReadRow(QStringView table, const FoundRow& row);

    /// Delete or change one row by its key, whatever its values: for rows that the SQL dialect cannot
    /// select. Throw SqlError.
    void DeleteRow(QStringView table, qint64 key);
    void ChangeRow(QStringView table, qint64 key, const std::vector<ColumnValue>& values);

    /// Inserts a row with a value for every column, for names the SQL dialect cannot write. Throws SqlError.
    void InsertRow(QStringView table, const std::vector<ColumnValue>& values);

    /// Throws SqlError.
    ChangeMark Mark();

    /// Whether a DayTransaction is open.
    bool IsInTransaction() const { return m_connection && m_connection->IsInTransaction(); }

private:
    friend class AttachedFile;
    friend class DayTransaction;
    friend class LargeCache;
    friend class RawRows;
    friend class RowSearch;

    void Open(LockedOpening opening);
    SqliteConnection& Connection();
    void RunOnRow(const QByteArray& sql, qint64 key, const std::vector<ColumnValue>& values);

    QString m_path;  // empty: closed
    QString m_shownAs;
    FileUse m_use = FileUse::Work;
    QString m_loggedReason;
    std::unique_ptr<SqliteConnection> m_connection;  // null if the file could not be opened yet
    quint64 m_serial = 0;                            // different for each opening
};

}  // namespace tickwell::store
