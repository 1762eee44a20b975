// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sqlite_statement.h"

#include <sqlite3.h>

#include "store/sql_error.h"
#include "store/sqlite_text.h"

namespace tickwell::store {

SqliteStatement::SqliteStatement(sqlite3* connection, const QByteArray& sql) : m_connection(connection) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v3(connection, sql.constData(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    if (result != SQLITE_OK) {
        throw SqlError(SqliteReason(result), QString::fromUtf8(sql), result);
    }
    m_statement.reset(prepared);
}

void SqliteStatement::Bind(int index, qint32 value) {
    Check(sqlite3_bind_int(m_statement.get(), index, value));
}

void SqliteStatement::Bind(int index, qint64 value) {
    Check(sqlite3_bind_int64(m_statement.get(), index, value));
}

void SqliteStatement::Bind(int index, const QString& value) {
    BindBytes(index, ToSqliteText(value));
}

void SqliteStatement::BindBytes(int index, QByteArrayView bytes) {
    // An empty text is not NULL, which a null pointer would be.
    const char* const start = bytes.isEmpty() ? "" : bytes.data();
    Check(sqlite3_bind_text64(m_statement.get(), index, start, static_cast<sqlite3_uint64>(bytes.size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8));
}

bool SqliteStatement::Step() {
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_DONE) {
        Check(result == SQLITE_ROW ? SQLITE_OK : result);
    }
    return result == SQLITE_ROW;
}

void SqliteStatement::Reset() noexcept {
    sqlite3_reset(m_statement.get());  // returns the error of the last step again, so its result is ignored
}

qint64 SqliteStatement::Integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

QString SqliteStatement::Text(int column) const {
    return FromSqliteText(Bytes(column));
}

QByteArrayView SqliteStatement::Bytes(int column) const {
    const unsigned char* bytes = sqlite3_column_text(m_statement.get(), column);
    return {bytes, sqlite3_column_bytes(m_statement.get(), column)};
}

bool SqliteStatement::IsNull(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

void SqliteStatement::Check(int result) const {
    if (result != SQLITE_OK) {
        throw SqlError(SqliteReason(result), QString::fromUtf8(sqlite3_sql(m_statement.get())), result);
    }
}

}  // namespace tickwell::store
