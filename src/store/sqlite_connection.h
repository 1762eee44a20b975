// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <optional>
#include <stop_token>

#include "store/shared_file_lock.h"
#include "store/sqlite_statement.h"

struct sqlite3_file;

namespace tickwell {

/// How a file is opened.
enum class FileUse {
    Work,     ///< reading and writing, with a share in the lock file beside it
    LookOver  ///< reading alone and without a lock file: for a file that is no one's, and stays as it is
};

/// What opening does about a lock that another program holds. Afterwards every statement waits up to two
/// seconds for one.
enum class LockedOpening {
    Waits,       ///< up to two seconds for each lock
    FailsAtOnce  ///< for a caller that will try again
};

/// One open SQLite file, set so that what was written is on the disk when the call returns, also after a
/// power cut. Never creates a file. Errors are thrown as SqlError, those of opening as RunTimeError.
class SqliteConnection {
public:
    explicit SqliteConnection(const QString& path, FileUse use = FileUse::Work,
                              LockedOpening opening = LockedOpening::Waits);

    /// Statements wait up to two seconds for a lock from now on. To be called when the file was looked over.
    void WaitForLocks();

    /// Once `stop` is requested, from whichever thread, running and later statements fail with
    /// SQLITE_INTERRUPT.
    void StopWith(std::stop_token stop);

    /// Keeps everyone else away from the file, also programs that know nothing of the lock file, until this
    /// object goes. Nothing that would have to be taken back stands in the file then. Throws RunTimeError
    /// where another one holds it.
    void TakeWhole();

    /// `sql` prepared, at rest, without values; kept for the next time. The reference holds until the next
    /// call.
    SqliteStatement& Prepared(const QByteArray& sql);

    /// Runs a statement that gives no rows.
    void Run(const QByteArray& sql);

    /// The first column of the first row that `sql` gives, as text; empty when there is none.
    QString FirstValue(const QByteArray& sql);

    /// How many rows the last INSERT, UPDATE or DELETE changed.
    int Changes() const;

    /// Rows changed since the connection was opened.
    qint64 TotalChanges() const;

    /// Also false after an error for which the engine itself took a transaction back.
    bool IsInTransaction() const;

    /// `count` bytes of the file from `at` on, zeros where it is shorter. Read through the engine's own
    /// descriptor: closing another one on the same file would take the engine's locks away.
    QByteArray Bytes(qint64 at, int count) const;

    /// In bytes.
    qint64 FileSize() const;

    /// As the system knows the file, absolute.
    QByteArray NativeName() const;

private:
    friend class InstructionLimit;

    struct Closer {
        void operator()(sqlite3* handle) const;
    };

    void Open(const QString& path, FileUse use);
    void SetPragma(const QByteArray& name, const QByteArray& value, QLatin1StringView answer);
    [[noreturn]] void Fail(int result, const QString& sql) const;
    sqlite3_file* File() const;

    std::optional<SharedFileLock> m_lock;  // given back last
    std::stop_token m_stop;
    std::unique_ptr<sqlite3, Closer> m_handle;
    QHash<QByteArray, std::shared_ptr<SqliteStatement>> m_prepared;  // finalized before the file is closed
};

/// While it lives, a statement ends with SQLITE_INTERRUPT after about so many instructions.
class InstructionLimit {
public:
    /// `connection` outlives it.
    InstructionLimit(SqliteConnection& connection, int instructions);
    ~InstructionLimit();
    InstructionLimit(const InstructionLimit&) = delete;
    InstructionLimit& operator=(const InstructionLimit&) = delete;

private:
    SqliteConnection& m_connection;
};

}  // namespace tickwell
