// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScopeGuard>

#include "store/sqlite_connection.h"

namespace tickwell::store {

/// Throws DamagedToolsError if a value of the file is not as it must be.
void RequireTools(bool isTrue);

/// Whether a stored moment in ms since 1970 is one that a clock can show. It is negative before 1970.
constexpr bool IsToolsMoment(qint64 moment) {
    constexpr qint64 kEndOfTime = 253'402'300'800'000;  // the year 10000
    return moment > -kEndOfTime && moment < kEndOfTime;
}

/// Calls `row` with the statement at each row of `sql`.
template <typename Row>
void ReadToolsRows(SqliteConnection& connection, const QByteArray& sql, Row row) {
    SqliteStatement& statement = connection.Prepared(sql);
    const auto reset = qScopeGuard([&statement] { statement.Reset(); });
    while (statement.Step()) {
        row(statement);
    }
}

}  // namespace tickwell::store
