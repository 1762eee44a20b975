// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace tickwell {

/// One prepared statement. After it was stepped through, or after an error, Reset puts it at rest again: a
/// statement that is not at rest holds the file. Errors are thrown as SqlError.
class SqliteStatement {
public:
    /// `connection` outlives the statement. `sql` is ours, never a text from outside.
    SqliteStatement(sqlite3* connection, const QByteArray& sql);

    /// `index`: 1 for ?1.
    void Bind(int index, qint32 value);
    void Bind(int index, qint64 value);
    void Bind(int index, const QString& value);

    /// Goes to the next row; false when there is none.
    bool Step();
    void Reset() noexcept;

    /// Values of the row it stands on; `column` is counted from 0.
    qint64 Integer(int column) const;
    QString Text(int column) const;
    /// A text as it is stored; holds until the next step.
    QByteArrayView Bytes(int column) const;
    bool IsNull(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Check(int result) const;

    sqlite3* m_connection;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

}  // namespace tickwell
