// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sqlite_connection.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <utility>

#include "store/sql_error.h"
#include "store/sqlite_limits.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

// ms, the longest wait for a lock of another program. The shorter one is for readers that must not keep their
// caller waiting: long enough for another program's commit, but not for a compaction.
constexpr int kBusyTimeout = 2000;
constexpr int kReadersTimeout = 500;

// In the header of the file: the version that a program must support to read it.
constexpr int kReadVersionAt = 19;
constexpr char kWriteAheadLog = 2;

constexpr int kMostPrepared = 64;

constexpr int kStepsBetweenLooks = 1000;  // SQLite instructions, a few microseconds

bool GiveUp() {
    return false;
}

int IsStopped(void* stop) {
    return static_cast<const std::stop_token*>(stop)->stop_requested() ? 1 : 0;
}

/// The absolute path: SQLite interprets "file:" and ":memory:" specially.
QString OfAFile(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists()) {
        throw RunTimeError(u"データベースのファイルがありません。"_s);
    }
    if (!file.isFile()) {
        throw RunTimeError(u"データベースのファイルではありません。"_s);
    }
    for (const QLatin1StringView suffix : {"-journal"_L1, "-wal"_L1}) {
        const QFileInfo journal(file.canonicalFilePath() + suffix);
        if (journal.exists() && !journal.isFile()) {  // SQLite would open a pipe and block forever
            throw RunTimeError(journal.fileName() +
                               u" は通常のファイルではありません。移動または削除してください。");
        }
    }
    return file.absoluteFilePath();
}

}  // namespace

SqliteConnection::SqliteConnection(const QString& path, FileUse use, LockedOpening opening)
    : m_busyTimeout(use == FileUse::Work ? kBusyTimeout : kReadersTimeout) {
    if (use == FileUse::Work) {
        m_lock.emplace(OfAFile(path), opening == LockedOpening::Waits ? SharedFileLock::Patiently() : GiveUp);
    }
    Open(path, use);
    if (use == FileUse::LookOver) {
        RefuseWriteAheadLog();
    }
    LimitSqlite(m_handle.get());
    if (opening == LockedOpening::Waits) {
        WaitForLocks();
    }
    SetPragma("journal_mode", "DELETE", "delete"_L1);
    SetPragma("synchronous", "EXTRA", "3"_L1);  // deleting the journal at a commit also syncs its folder
    SetPragma("temp_store", "MEMORY", "2"_L1);  // so that sorting does not depend on space in /tmp
}

void SqliteConnection::Open(const QString& path, FileUse use) {
    sqlite3* handle = nullptr;
    const int access = use == FileUse::Work ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    const int result = sqlite3_open_v2(QFile::encodeName(OfAFile(path)).constData(), &handle,
                                       access | SQLITE_OPEN_EXRESCODE, nullptr);
    m_handle.reset(handle);  // a failed open returns a handle too
    if (result != SQLITE_OK) {
        Fail(result, path);
    }
}

/// SQLite would create two files beside a database in WAL mode, even to read it.
void SqliteConnection::RefuseWriteAheadLog() const {
    if (Bytes(kReadVersionAt, 1).front() == kWriteAheadLog) {
        throw RunTimeError(
            u"データベースの書き込み方式 (WAL) が変えられています。Tickwell を起動すると元に戻ります。"_s);
    }
}

void SqliteConnection::WaitForLocks() {
    const int result = sqlite3_busy_timeout(m_handle.get(), m_busyTimeout);
    if (result != SQLITE_OK) {
        Fail(result, QString());
    }
}

void SqliteConnection::StopWith(std::stop_token stop) {
    m_stop = std::move(stop);
    sqlite3_progress_handler(m_handle.get(), kStepsBetweenLooks, IsStopped, &m_stop);
}

void SqliteConnection::SetPragma(const QByteArray& name, const QByteArray& value, QLatin1StringView answer) {
    FirstValue("PRAGMA " + name + '=' + value);
    if (FirstValue("PRAGMA " + name) != answer) {
        Fail(SQLITE_ERROR, QString::fromLatin1(name));
    }
}

SqliteStatement& SqliteConnection::Prepared(const QByteArray& sql) {
    auto found = m_prepared.find(sql);
    if (found == m_prepared.end()) {
        if (m_prepared.size() >= kMostPrepared) {
            m_prepared.clear();
        }
        found = m_prepared.insert(sql, std::make_shared<SqliteStatement>(m_handle.get(), sql));
    }
    return **found;
}

void SqliteConnection::Run(const QByteArray& sql) {
    FirstValue(sql);
}

QString SqliteConnection::FirstValue(const QByteArray& sql) {
    SqliteStatement statement(m_handle.get(), sql);
    return statement.Step() ? statement.Text(0) : QString();
}

int SqliteConnection::Changes() const {
    return sqlite3_changes(m_handle.get());
}

qint64 SqliteConnection::TotalChanges() const {
    return sqlite3_total_changes64(m_handle.get());
}

bool SqliteConnection::IsInTransaction() const {
    return sqlite3_get_autocommit(m_handle.get()) == 0;
}

void SqliteConnection::TakeExclusive() {
    if (m_lock) {
        m_lock->TakeExclusive();
    }
    // In this mode SQLite never releases a lock that it has acquired.
    SetPragma("main.locking_mode", "EXCLUSIVE", "exclusive"_L1);
    Run("BEGIN EXCLUSIVE");
    Run("COMMIT");
}

sqlite3_file* SqliteConnection::File() const {
    sqlite3_file* file = nullptr;
    const int result = sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (result != SQLITE_OK || file == nullptr || file->pMethods == nullptr) {
        Fail(result, QString());
    }
    return file;
}

QByteArray SqliteConnection::Bytes(qint64 at, int count) const {
    sqlite3_file* file = File();
    QByteArray bytes(count, '\0');
    const int read = file->pMethods->xRead(file, bytes.data(), count, at);  // zeros past the end of the file
    if (read != SQLITE_OK && read != SQLITE_IOERR_SHORT_READ) {
        Fail(read, QString());
    }
    return bytes;
}

qint64 SqliteConnection::FileSize() const {
    sqlite3_file* file = File();
    sqlite3_int64 size = 0;
    const int result = file->pMethods->xFileSize(file, &size);
    if (result != SQLITE_OK) {
        Fail(result, QString());
    }
    return size;
}

QByteArray SqliteConnection::NativeName() const {
    return sqlite3_db_filename(m_handle.get(), "main");
}

void SqliteConnection::Fail(int result, const QString& sql) const {
    throw SqlError(SqliteReason(result), sql, result);
}

InstructionLimit::InstructionLimit(SqliteConnection& connection, int instructions)
    : m_connection(connection) {
    sqlite3_progress_handler(
        connection.m_handle.get(), instructions, [](void*) { return 1; }, nullptr);
}

InstructionLimit::~InstructionLimit() {
    sqlite3_progress_handler(m_connection.m_handle.get(), 0, nullptr, nullptr);
}

}  // namespace tickwell::store
