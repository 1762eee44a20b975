// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"

namespace tickwell::store {

/// A statement that the day database refused or that SQLite failed to execute.
class SqlError : public RunTimeError {
public:
    /// `sql`: the statement as passed by the caller. `sqliteCode`: the extended result code of SQLite; 0 if
    /// the statement did not reach SQLite.
    SqlError(const QString& reason, QString sql, int sqliteCode = 0);

    QString Detail() const override;
    const QString& Sql() const { return m_sql; }
    int SqliteCode() const { return m_sqliteCode; }

private:
    QString m_sql;
    int m_sqliteCode;
};

/// A stored value that only another program can have written.
class ForeignValueError : public RunTimeError {
public:
    ForeignValueError();
};

/// The meaning of an extended SQLite result code for the user, followed by the code in brackets.
QString SqliteReason(int sqliteCode);

}  // namespace tickwell::store
