// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <optional>
#include <stop_token>

#include "store/shared_file_lock.h"
#include "store/sqlite_statement.h"

namespace tickwell::store {

/// How a file is opened.
enum class FileUse {
    Work,     ///< read and write, with a shared lock on the lock file beside it
    LookOver  ///< read only and without a lock file: neither the file nor its folder is changed
};

/// How opening handles a lock held by another program. Once the connection is open and checked, every
/// statement waits for a lock: up to two seconds, or half a second if it is read only.
enum class LockedOpening {
    Waits,       ///< for each lock as long as a statement would
    FailsAtOnce  ///< for a caller that will try again
};

/// One open SQLite file. Writes are on the disk when the call returns, safe even against a power failure.
/// Never creates a file. Errors are thrown as SqlError, those of opening as RunTimeError.
class SqliteConnection {
public:
    explicit SqliteConnection(const QString& path, FileUse use = FileUse::Work,
                              LockedOpening opening = LockedOpening::Waits);

    /// From now on statements wait for a lock. To be called after the file was checked.
    void WaitForLocks();

    /// Once `stop` is requested, from any thread, running and later statements fail with SQLITE_INTERRUPT.
    void StopWith(std::stop_token stop);

    /// Acquires an exclusive lock on the file, held until this object is destroyed, which also keeps out
    /// programs that ignore the lock file. The file then contains no uncommitted change. Throws RunTimeError
    /// if another connection has it open.
    void TakeExclusive();

    /// `sql` as a prepared statement, reset and without values; cached. The reference is valid until the next
    /// call.
    SqliteStatement& Prepared(const QByteArray& sql);

    /// Runs a statement that returns no rows.
    void Run(const QByteArray& sql);

    /// The first column of the first row of `sql`, as text; empty if there is no row.
    QString FirstValue(const QByteArray& sql);

    /// The number of rows that the last INSERT, UPDATE or DELETE changed.
    int Changes() const;

    /// The number of rows changed since the connection was opened.
    qint64 TotalChanges() const;

    /// Also false after an error that made SQLite roll the transaction back.
    bool IsInTransaction() const;

    /// `count` bytes of the file from offset `at`, padded with zeros past its end. Uses SQLite's own file
    /// descriptor: closing another one on the same file would release SQLite's locks.
    QByteArray Bytes(qint64 at, int count) const;

    /// In bytes.
    qint64 FileSize() const;

    /// The absolute path, in the encoding of the file system.
    QByteArray NativeName() const;

private:
    friend class InstructionLimit;

    void Open(const QString& path, FileUse use);
    void RefuseWriteAheadLog() const;
    void SetPragma(const QByteArray& name, const QByteArray& value, QLatin1StringView answer);
    [[noreturn]] void Fail(int result, const QString& sql) const;
    sqlite3_file* File() const;

    std::optional<SharedFileLock> m_lock;  // released last
    int m_busyTimeout;                     // ms
    std::stop_token m_stop;
    SqliteHandle m_handle;
    QHash<QByteArray, std::shared_ptr<SqliteStatement>> m_prepared;  // finalized before the file is closed
};

/// During its lifetime a statement ends with SQLITE_INTERRUPT after about that many instructions.
class InstructionLimit {
public:
    /// `connection` outlives this object.
    InstructionLimit(SqliteConnection& connection, int instructions);
    ~InstructionLimit();
    InstructionLimit(const InstructionLimit&) = delete;
    InstructionLimit& operator=(const InstructionLimit&) = delete;

private:
    SqliteConnection& m_connection;
};

}  // namespace tickwell::store
