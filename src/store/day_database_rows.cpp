// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScopeGuard>

#include "store/day_database.h"
#include "store/row_search.h"
#include "store/sql_error.h"
#include "store/sqlite_text.h"

namespace tickwell::store {

namespace {

QByteArray Identifier(QStringView name) {
    return '"' + name.toLatin1() + '"';
}

/// False for a text that is not valid UTF-8: it was read with U+FFFD in place of the invalid bytes.
bool IsExact(const ResultRow::Value& value, QByteArrayView bytes) {
    const auto* text = std::get_if<QString>(&value);
    return text == nullptr || !text->contains(QChar::ReplacementCharacter) || ToSqliteText(*text) == bytes;
}

/// Runs a statement whose first `bound` parameters are bound already.
void RunWith(SqliteStatement& statement, int bound, const std::vector<ColumnValue>& values) {
    const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
    int index = bound;
    for (const ColumnValue& each : values) {
        ++index;
        std::visit([&](const auto& value) { statement.Bind(index, value); }, each.value);
    }
    statement.Step();
}

}  // namespace

std::optional<ResultRow> DayDatabase::ReadRow(QStringView tableName, const FoundRow& row) {
    Q_ASSERT(FindTable(tableName) != nullptr);
    const SchemaTable& table = *FindTable(tableName);
    const auto columns = std::make_shared<const ResultColumns>(table.columns.begin(), table.columns.end());
    QByteArrayList names;
    for (const SchemaColumn& column : *columns) {
        names.append(Identifier(column.name));
    }
    SqliteStatement& statement = Connection().Prepared("SELECT " + names.join(',') + " FROM " +
                                                       Identifier(table.name) + " WHERE \"id\" = ?1");
    statement.Bind(1, row.key);
    const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
    RowDigester digester;
    if (!statement.Step() || DigestOf(statement, 0, table, digester).first != row.content) {
        return std::nullopt;
    }
    std::vector<ResultRow::Value> values;
    bool isExact = true;
    for (std::size_t i = 0; i < columns->size(); ++i) {
        const auto column = static_cast<int>(i);
        values.push_back(StoredValueAt(statement, column, (*columns)[i].type));
        isExact = isExact && IsExact(values.back(), statement.Bytes(column));
    }
    return ResultRow(columns, std::move(values), isExact);
}

void DayDatabase::DeleteRow(QStringView table, qint64 key) {
    Q_ASSERT(FindTable(table) != nullptr);
    RunOnRow("DELETE FROM " + Identifier(FindTable(table)->name) + " WHERE \"id\" = ?1", key, {});
}

void DayDatabase::ChangeRow(QStringView tableName, qint64 key, const std::vector<ColumnValue>& values) {
    const SchemaTable& table = *FindTable(tableName);
    QByteArrayList assignments;
    for (const ColumnValue& value : values) {
        assignments.append(Identifier(value.column) + " = ?" + QByteArray::number(assignments.size() + 2));
    }
    RunOnRow("UPDATE " + Identifier(table.name) + " SET " + assignments.join(',') + " WHERE \"id\" = ?1", key,
             values);
}

void DayDatabase::InsertRow(QStringView tableName, const std::vector<ColumnValue>& values) {
    Q_ASSERT(FindTable(tableName) != nullptr);
    QByteArrayList columns;
    QByteArrayList places;
    for (const ColumnValue& each : values) {
        columns.append(Identifier(each.column));
        places.append('?' + QByteArray::number(columns.size()));
    }
    SqliteStatement& statement =
        Connection().Prepared("INSERT INTO " + Identifier(FindTable(tableName)->name) + '(' +
                              columns.join(',') + ") VALUES (" + places.join(',') + ')');
    RunWith(statement, 0, values);
}

void DayDatabase::RunOnRow(const QByteArray& sql, qint64 key, const std::vector<ColumnValue>& values) {
    SqliteStatement& statement = Connection().Prepared(sql);
    statement.Bind(1, key);
    RunWith(statement, 1, values);
}

}  // namespace tickwell::store
