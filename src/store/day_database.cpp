// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_database.h"

#include <QScopeGuard>

#include "store/day_database_check.h"
#include "store/sql_compiler.h"
#include "store/sql_error.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDateLength = 10;  // of "1998-10-03"

/// What can only stand in the file when another program put it there.
RunTimeError ForeignValue() {
    return RunTimeError(u"データベースの値が正しくありません。"_s);
}

ResultRow::Value ValueOf(const SqliteStatement& statement, int column, ColumnType type) {
    if (type == ColumnType::Integer) {
        const qint64 number = statement.Integer(column);
        if (number != static_cast<qint32>(number)) {
            throw ForeignValue();
        }
        return static_cast<qint32>(number);
    }
    const QString text = statement.Text(column);
    if (type == ColumnType::Text) {
        return text;
    }
    return text.size() == kDateLength ? QDate::fromString(text, Qt::ISODate) : QDate();
}

SqliteStatement& Bound(SqliteConnection& connection, const CompiledSql& compiled) {
    SqliteStatement& statement = connection.Prepared(compiled.text);
    int index = 0;
    for (const BoundValue& value : compiled.values) {
        ++index;
        std::visit([&](const auto& bound) { statement.Bind(index, bound); }, value);
    }
    return statement;
}

std::vector<ResultRow> Rows(SqliteConnection& connection, CompiledSql compiled) {
    SqliteStatement& statement = Bound(connection, compiled);
    const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
    const auto columns = std::make_shared<const ResultColumns>(std::move(compiled.columns));
    std::vector<ResultRow> rows;
    while (statement.Step()) {
        std::vector<ResultRow::Value> values;
        values.reserve(columns->size());
        for (std::size_t i = 0; i < columns->size(); ++i) {
            values.push_back(ValueOf(statement, static_cast<int>(i), (*columns)[i].type));
        }
        rows.emplace_back(columns, std::move(values));
    }
    return rows;
}

CompiledSql Compiled(const QString& sql, bool isQuery) {
    CompiledSql compiled = CompileSql(sql);
    if (compiled.isQuery != isQuery) {
        throw SqlError(u"SQL文の種類が違います。"_s, sql);
    }
    return compiled;
}

/// Runs `job`; its errors bear the statement as the caller wrote it.
template <typename Job>
auto Run(const QString& sql, Job job) {
    try {
        return job();
    } catch (const SqlError& error) {
        throw SqlError(error.Reason(), sql, error.EngineCode());
    } catch (const RunTimeError& error) {
        throw SqlError(error.Reason(), sql);
    }
}

}  // namespace

DayDatabase::DayDatabase(const QString& path) : m_connection(path) {
    CheckDayDatabase(m_connection);
}

ResultSet DayDatabase::RunQuery(const QString& sql) {
    return Run(sql, [&] { return ResultSet(Rows(m_connection, Compiled(sql, true))); });
}

int DayDatabase::Execute(const QString& sql) {
    return Run(sql, [&] {
        SqliteStatement& statement = Bound(m_connection, Compiled(sql, false));
        const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
        statement.Step();
        return m_connection.Changes();
    });
}

DayTransaction::DayTransaction(DayDatabase& database) : m_connection(database.m_connection) {
    m_connection.Run("BEGIN IMMEDIATE");
}

DayTransaction::~DayTransaction() {
    if (!m_isOpen || !m_connection.IsInTransaction()) {
        return;
    }
    try {
        m_connection.Run("ROLLBACK");
    } catch (const RunTimeError&) {
        // The file's journal is still there: whoever opens it next takes everything back.
    }
}

void DayTransaction::Commit() {
    m_connection.Run("COMMIT");
    m_isOpen = false;
}

std::unique_ptr<DayDatabase> OpenDayDatabase(const QString& path) {
    try {
        return std::make_unique<DayDatabase>(path);
    } catch (const RunTimeError& error) {
        throw RunTimeError(path + u"\r\n" + error.Reason());
    }
}

DayDatabase& Opened(const std::unique_ptr<DayDatabase>& handle) {
    if (!handle) {
        throw RunTimeError(u"データベースが開かれていません。"_s);
    }
    return *handle;
}

}  // namespace tickwell
