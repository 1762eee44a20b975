// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/row_search.h"

#include <sqlite3.h>

#include <QScopeGuard>
#include <limits>
#include <utility>

#include "store/sql_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

// Often an index finds all rows at once. If that takes more than this number of SQLite instructions, about 10
// ms, the table is searched slice by slice.
constexpr int kWholeInstructions = 500'000;

constexpr qint32 kSlice = 10'000;  // rows

QByteArray ColumnsOf(const SchemaTable& table) {
    QByteArray columns = "\"id\"";
    for (const SchemaColumn& column : table.columns) {
        columns += ",\"" + column.name.toLatin1() + '"';
    }
    return columns;
}

}  // namespace

RowDigest DigestOf(const SqliteStatement& statement, int column, const SchemaTable& table,
                   RowDigester& digester) {
    for (const SchemaColumn& each : table.columns) {
        if (each.type == ColumnType::Integer) {
            const qint64 number = statement.Integer(column);
            if (number != static_cast<qint32>(number)) {
                throw ForeignValueError();
            }
            digester.Add(number);
        } else {
            digester.Add(statement.Bytes(column));
        }
        ++column;
    }
    return digester.Take();
}

RowSearch::RowSearch(const QString& select) : m_sql(select), m_compiled(CompileSql(select)) {
    if (!m_compiled.isQuery) {
        throw SqlError(u"SQL文の種類が違います。"_s, select);
    }
    m_table = m_compiled.table;
}

RowSearch::RowSearch(QStringView table, Filter filter)
    : m_table(FindTable(table)), m_filter(std::move(filter)) {
    Q_ASSERT(m_table != nullptr);
    m_compiled.condition = "1";
}

bool RowSearch::Step(DayDatabase& database) {
    try {
        return m_next ? Slice(database.Connection()) : TryWhole(database.Connection());
    } catch (const SqlError& error) {
        throw SqlError(error.Reason(), m_sql, error.SqliteCode());
    } catch (const RunTimeError& error) {
        throw SqlError(error.Reason(), m_sql);
    }
}

FoundRows RowSearch::Take() {
    m_found.squeeze();
    return std::exchange(m_found, {});
}

bool RowSearch::TryWhole(SqliteConnection& connection) {
    Forget();
    try {
        const InstructionLimit limit(connection, kWholeInstructions);
        Collect(Prepared(connection, Select(QByteArray()) + R"( ORDER BY "id")"));
    } catch (const SqlError& error) {
        if (error.SqliteCode() != SQLITE_INTERRUPT) {
            throw;
        }
        Forget();
        Enter(connection);
        return false;
    }
    m_part = 1;
    return true;
}

void RowSearch::Forget() {
    m_found.clear();
    m_count = 0;
}

/// Determines the keys at which the slices begin and end.
void RowSearch::Enter(SqliteConnection& connection) {
    SqliteStatement& ends =
        connection.Prepared(R"(SELECT min("id"),max("id") FROM ")" + m_table->name.toLatin1() + '"');
    const auto atRest = qScopeGuard([&ends] { ends.Reset(); });
    ends.Step();
    m_first = ends.Integer(0);
    m_last = ends.Integer(1);
    m_next = m_first;
}

bool RowSearch::Slice(SqliteConnection& connection) {
    const QByteArray table = '"' + m_table->name.toLatin1() + '"';
    qint64 last = 0;
    {
        SqliteStatement& end = connection.Prepared(R"(SELECT max("id") FROM (SELECT "id" FROM )" + table +
                                                   R"( WHERE "id" >= ?1 ORDER BY "id" LIMIT ?2))");
        const auto atRest = qScopeGuard([&end] { end.Reset(); });
        end.Bind(1, *m_next);
        end.Bind(2, kSlice);
        end.Step();
        if (end.IsNull(0)) {
            m_part = 1;
            return true;
        }
        last = end.Integer(0);
    }
    const auto values = static_cast<int>(m_compiled.values.size());
    SqliteStatement& slice = Prepared(connection, Select(" NOT INDEXED") + R"( AND "id" BETWEEN ?)" +
                                                      QByteArray::number(values + 1) + " AND ?" +
                                                      QByteArray::number(values + 2) + R"( ORDER BY "id")");
    slice.Bind(values + 1, *m_next);
    slice.Bind(values + 2, last);
    Collect(slice);
    const double all = static_cast<double>(m_last) - static_cast<double>(m_first) + 1;
    m_part = (static_cast<double>(last) - static_cast<double>(m_first) + 1) / all;
    if (last == std::numeric_limits<qint64>::max()) {
        return true;
    }
    m_next = last + 1;
    return false;
}

QByteArray RowSearch::Select(const QByteArray& from) const {
    return "SELECT " + ColumnsOf(*m_table) + " FROM \"" + m_table->name.toLatin1() + '"' + from + " WHERE (" +
           m_compiled.condition + ')';
}

/// Binds the values of the condition.
SqliteStatement& RowSearch::Prepared(SqliteConnection& connection, const QByteArray& text) const {
    SqliteStatement& statement = connection.Prepared(text);
    int index = 0;
    for (const BoundValue& value : m_compiled.values) {
        ++index;
        std::visit([&](const auto& bound) { statement.Bind(index, bound); }, value);
    }
    return statement;
}

void RowSearch::Collect(SqliteStatement& statement) {
    const auto atRest = qScopeGuard([&statement] { statement.Reset(); });
    while (statement.Step()) {
        const RowDigest digest = DigestOf(statement, 1, *m_table, m_digester);
        if (m_filter && !m_filter(digest)) {
            continue;
        }
        ++m_count;
        if (m_keeps) {
            m_found.append({statement.Integer(0), digest.first});
        }
    }
}

}  // namespace tickwell::store
