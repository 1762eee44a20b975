// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"

namespace tickwell {

/// A statement that the day database refused, or that its engine could not carry out.
class SqlError : public RunTimeError {
public:
    /// `sql`: the statement as it was given. `engineCode`: the extended result code of SQLite; 0 when the
    /// statement never came as far as the engine.
    SqlError(const QString& reason, QString sql, int engineCode = 0);

    const QString& Sql() const { return m_sql; }
    int EngineCode() const { return m_engineCode; }

private:
    QString m_sql;
    int m_engineCode;
};

/// A value that can only stand in the file because another program put it there.
class ForeignValueError : public RunTimeError {
public:
    ForeignValueError();
};

/// What an extended result code of SQLite means to the user, with the code in brackets.
QString EngineReason(int engineCode);

}  // namespace tickwell
