// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_database.h"

#include <sqlite3.h>

#include <QRandomGenerator>
#include <QScopeGuard>
#include <limits>
#include <utility>

#include "store/day_database_check.h"
#include "store/log.h"
#include "store/sql_compiler.h"
#include "store/sql_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

// SQLite instructions, about 10 ms. More means that an index matched very many rows, which are then sorted.
constexpr int kFirstInstructions = 500'000;

SqliteStatement& Bound(SqliteConnection& connection, const CompiledSql& compiled) {
    SqliteStatement& statement = connection.Prepared(compiled.text);
    int index = 0;
    for (const BoundValue& value : compiled.values) {
        ++index;
        std::visit([&](const auto& bound) { statement.Bind(index, bound); }, value);
    }
    return statement;
}

/// Passes the first `most` rows to `take`.
template <typename Take>
void ReadRows(SqliteConnection& connection, CompiledSql compiled, std::size_t most, Take take) {
    SqliteStatement& statement = Bound(connection, compiled);
    const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
    const auto columns = std::make_shared<const ResultColumns>(std::move(compiled.columns));
    for (std::size_t row = 0; row < most && statement.Step(); ++row) {
        std::vector<ResultRow::Value> values;
        values.reserve(columns->size());
        for (std::size_t i = 0; i < columns->size(); ++i) {
            values.push_back(StoredValueAt(statement, static_cast<int>(i), (*columns)[i].type));
        }
        take(ResultRow(columns, std::move(values)));
    }
}

std::vector<ResultRow> Rows(SqliteConnection& connection, CompiledSql compiled, std::size_t most) {
    std::vector<ResultRow> rows;
    ReadRows(connection, std::move(compiled), most,
             [&rows](ResultRow row) { rows.push_back(std::move(row)); });
    return rows;
}

CompiledSql Compiled(const QString& sql, bool isQuery) {
    CompiledSql compiled = CompileSql(sql);
    if (compiled.isQuery != isQuery) {
        throw SqlError(u"SQL文の種類が違います。"_s, sql);
    }
    return compiled;
}

/// Runs `job`; its errors carry the statement as the caller wrote it.
template <typename Job>
auto Run(const QString& sql, Job job) {
    try {
        return job();
    } catch (const SqlError& error) {
        throw SqlError(error.Reason(), sql, error.SqliteCode());
    } catch (const RunTimeError& error) {
        throw SqlError(error.Reason(), sql);
    }
}

}  // namespace

DayDatabase::DayDatabase(QString path, QString shownAs)
    : m_path(std::move(path)), m_shownAs(std::move(shownAs)) {
    Open(LockedOpening::Waits);
}

DayDatabase DayDatabase::OpenLater(const QString& path, const QString& shownAs) {
    DayDatabase database;
    database.m_path = path;
    database.m_shownAs = shownAs;
    return database;
}

DayDatabase DayDatabase::OpenToRead(const QString& path) {
    DayDatabase database;
    database.m_path = path;
    database.m_use = FileUse::LookOver;
    database.Open(LockedOpening::Waits);
    return database;
}

DayDatabase& DayDatabase::operator=(DayDatabase&& other) noexcept {
    m_path = std::exchange(other.m_path, {});
    m_shownAs = std::exchange(other.m_shownAs, {});
    m_use = std::exchange(other.m_use, FileUse::Work);
    m_loggedReason = std::exchange(other.m_loggedReason, {});
    m_connection = std::move(other.m_connection);
    m_serial = std::exchange(other.m_serial, 0);
    return *this;
}

void DayDatabase::Close() {
    Q_ASSERT(!IsInTransaction());
    *this = DayDatabase();
}

void DayDatabase::Open(LockedOpening opening) {
    try {
        m_connection = std::make_unique<SqliteConnection>(m_path, m_use, opening);
        CheckDayDatabase(*m_connection);
        m_connection->WaitForLocks();
        m_serial = QRandomGenerator::global()->generate64();
    } catch (const RunTimeError& error) {
        m_connection.reset();
        throw RunTimeError((m_shownAs.isEmpty() ? m_path : m_shownAs) + u"\r\n" + error.Reason());
    }
}

SqliteConnection& DayDatabase::Connection() {
    if (!IsOpen()) {
        throw RunTimeError(u"データベースの最適化中です。終わるまでお待ちください。"_s);
    }
    if (!m_connection) {
        Open(LockedOpening::FailsAtOnce);
    }
    return *m_connection;
}

bool DayDatabase::TryOpen() {
    if (!IsOpen()) {
        return false;
    }
    try {
        Connection();
        return true;
    } catch (const RunTimeError& error) {
        if (error.Reason() != m_loggedReason) {
            m_loggedReason = error.Reason();
            qCWarning(StoreLog).noquote() << "the day database is still closed:" << error.Detail();
        }
        return false;
    }
}

ResultSet DayDatabase::RunQuery(const QString& sql) {
    return Run(sql, [&] {
        return ResultSet(Rows(Connection(), Compiled(sql, true), std::numeric_limits<std::size_t>::max()));
    });
}

ResultSet DayDatabase::RunQueryForFirst(int most, const QString& sql) {
    return Run(sql, [&] {
        SqliteConnection& connection = Connection();
        CompiledSql compiled = Compiled(sql, true);
        try {
            const InstructionLimit limit(connection, kFirstInstructions);
            return ResultSet(Rows(connection, compiled, static_cast<std::size_t>(most)));
        } catch (const SqlError& error) {
            if (error.SqliteCode() != SQLITE_INTERRUPT) {
                throw;
            }
        }
        compiled.text = compiled.fromTheStart;
        return ResultSet(Rows(connection, std::move(compiled), static_cast<std::size_t>(most)));
    });
}

void DayDatabase::ForEachRow(const QString& sql, const std::function<void(const ResultRow&)>& take) {
    Run(sql, [&] {
        CompiledSql compiled = Compiled(sql, true);
        compiled.text = compiled.fromTheStart;  // through an index the rows would have to be sorted
        ReadRows(Connection(), std::move(compiled), std::numeric_limits<std::size_t>::max(), take);
    });
}

int DayDatabase::Execute(const QString& sql) {
    return Run(sql, [&] {
        SqliteStatement& statement = Bound(Connection(), Compiled(sql, false));
        const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
        statement.Step();
        return Connection().Changes();
    });
}

ChangeMark DayDatabase::Mark() {
    SqliteConnection& connection = Connection();
    return {m_serial, connection.FirstValue("PRAGMA data_version"), connection.TotalChanges()};
}

}  // namespace tickwell::store
