// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include "store/sqlite_handle.h"

namespace tickwell::store {

/// One prepared statement. After stepping, and after an error, it must be Reset: an active statement keeps
/// the file locked. Errors are thrown as SqlError.
class SqliteStatement {
public:
    /// `connection` outlives the statement. `sql` is written by this program, never taken from outside.
    SqliteStatement(sqlite3* connection, const QByteArray& sql);

    /// `index`: 1 for ?1.
    void Bind(int index, qint32 value);
    void Bind(int index, qint64 value);
    void Bind(int index, const QString& value);
    /// Binds a text by its bytes, which need not be UTF-8.
    void BindBytes(int index, QByteArrayView bytes);

    /// Moves to the next row; false if there is none.
    bool Step();
    void Reset() noexcept;

    /// Values of the current row; `column` is counted from 0.
    qint64 Integer(int column) const;
    QString Text(int column) const;
    /// The text as stored; valid until the next step.
    QByteArrayView Bytes(int column) const;
    bool IsNull(int column) const;

private:
    void Check(int result) const;

    sqlite3* m_connection;
    SqliteStatementHandle m_statement;
};

}  // namespace tickwell::store
