// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

#include "store/day_schema.h"

namespace tickwell {

/// A value as the engine stores it: a date is its ISO text there, so that dates compare as dates.
using BoundValue = std::variant<qint32, QString>;

/// A statement for the engine, made of our own words alone; whatever the caller wrote is in the values.
struct CompiledSql {
    QByteArray text;
    QByteArray fromTheStart;  // the same query without an index: faster for the first of very many rows
    std::vector<BoundValue> values;     // of ?1, ?2 ..
    std::vector<SchemaColumn> columns;  // of the rows that come back
    const SchemaTable* table = nullptr;
    QByteArray condition;  // what follows WHERE; its values are the last ones
    bool isQuery = false;
};

/// Whether `text` can stand between double quotes in a statement.
bool IsQuotable(QStringView text);

/// Translates a statement of the day database's language (days/sql_parser.h). Tables and columns are those of
/// the schema; a column is compared with literals of its own type, texts by = alone; a condition compares a
/// text column once at most. Throws SqlError.
CompiledSql CompileSql(const QString& sql);

}  // namespace tickwell
