// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/raw_rows.h"

#include <QScopeGuard>

#include "store/log.h"
#include "store/sql_error.h"

namespace tickwell::store {

namespace {

QByteArray NamesOf(const SchemaTable& table) {
    QByteArrayList names;
    for (const SchemaColumn& column : table.columns) {
        names.append('"' + column.name.toLatin1() + '"');
    }
    return names.join(',');
}

}  // namespace

void RawRows::ForEach(
    const SchemaTable& table,
    const std::function<void(qint64 key, const std::vector<QByteArrayView>& values)>& take) const {
    SqliteStatement& rows = m_database.Connection().Prepared(
        R"(SELECT "id",)" + NamesOf(table) + R"( FROM ")" + table.name.toLatin1() + R"(" ORDER BY "id")");
    const auto reset = qScopeGuard([&rows] { rows.Reset(); });
    std::vector<QByteArrayView> values(table.columns.size());
    while (rows.Step()) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = rows.Bytes(static_cast<int>(i) + 1);
        }
        take(rows.Integer(0), values);
    }
}

void RawRows::Insert(const SchemaTable& table, const std::vector<QByteArray>& values) const {
    Q_ASSERT(values.size() == table.columns.size());
    QByteArrayList places;
    for (std::size_t i = 1; i <= values.size(); ++i) {
        places.append('?' + QByteArray::number(static_cast<qulonglong>(i)));
    }
    SqliteStatement& insert =
        m_database.Connection().Prepared(R"(INSERT INTO ")" + table.name.toLatin1() + R"("()" +
                                         NamesOf(table) + ") VALUES(" + places.join(',') + ')');
    const auto reset = qScopeGuard([&insert] { insert.Reset(); });
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int index = static_cast<int>(i) + 1;
        if (table.columns[i].type == ColumnType::Integer) {
            insert.Bind(index, values[i].toInt());
        } else {
            insert.BindBytes(index, values[i]);
        }
    }
    insert.Step();
}

AttachedFile::AttachedFile(DayDatabase& database, const QString& path) : m_connection(database.Connection()) {
    {
        SqliteStatement& attach = m_connection.Prepared(R"(ATTACH DATABASE ?1 AS "attached")");
        const auto reset = qScopeGuard([&attach] { attach.Reset(); });
        attach.Bind(1, path);
        attach.Step();
    }
    auto detach = qScopeGuard([this] { Detach(); });
    // As the day database itself: otherwise a power cut could restore the one without the other.
    m_connection.Run(R"(PRAGMA "attached".synchronous=EXTRA)");
    detach.dismiss();
}

AttachedFile::~AttachedFile() {
    Detach();
}

void AttachedFile::Detach() {
    try {
        m_connection.Run(R"(DETACH DATABASE "attached")");
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "a file remains attached:" << error.Detail();
    }
}

}  // namespace tickwell::store
