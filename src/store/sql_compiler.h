// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

#include "store/bound_value.h"
#include "store/day_schema.h"

namespace tickwell::store {

/// A statement for SQLite that contains only text written by the compiler; the caller's literals are bound
/// values.
struct CompiledSql {
    QByteArray text;
    QByteArray fromTheStart;         // the same query as a table scan: faster for the first of very many rows
    std::vector<BoundValue> values;  // of ?1, ?2 ..
    std::vector<SchemaColumn> columns;  // of the returned rows
    const SchemaTable* table = nullptr;
    QByteArray condition;  // what follows WHERE; its values are the last ones
    bool isQuery = false;
};

/// Translates a statement of the day database's SQL subset (store/sql_parser.h). Tables and columns are those
/// of the schema; a column is compared with literals of its own type, texts only by =; a condition compares a
/// text column at most once. Throws SqlError.
CompiledSql CompileSql(const QString& sql);

}  // namespace tickwell::store
