// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/row_comparison.h"

#include <QByteArrayList>
#include <QScopeGuard>

#include "store/day_schema.h"

namespace tickwell::store {

namespace {

QByteArray AllRows(const SchemaTable& table) {
    QByteArrayList columns{"id"};
    for (const SchemaColumn& column : table.columns) {
        columns.append('"' + column.name.toLatin1() + '"');
    }
    return "SELECT " + columns.join(',') + " FROM \"" + table.name.toLatin1() + "\" ORDER BY id";
}

bool IsSameRow(const SqliteStatement& one, const SqliteStatement& other, std::size_t columns) {
    for (int column = 0; column < static_cast<int>(columns); ++column) {
        if (one.Bytes(column) != other.Bytes(column)) {
            return false;
        }
    }
    return true;
}

bool HasSameRows(const SchemaTable& table, SqliteConnection& one, SqliteConnection& other) {
    const QByteArray sql = AllRows(table);
    SqliteStatement& ours = one.Prepared(sql);
    SqliteStatement& theirs = other.Prepared(sql);
    const auto atRest = qScopeGuard([&] {
        ours.Reset();
        theirs.Reset();
    });
    for (;;) {
        const bool isRow = ours.Step();
        if (theirs.Step() != isRow) {
            return false;
        }
        if (!isRow) {
            return true;
        }
        if (!IsSameRow(ours, theirs, table.columns.size() + 1)) {
            return false;
        }
    }
}

}  // namespace

bool HaveSameRows(SqliteConnection& one, SqliteConnection& other) {
    for (const SchemaTable& table : SchemaTables()) {
        if (!HasSameRows(table, one, other)) {
            return false;
        }
    }
    return true;
}

}  // namespace tickwell::store
