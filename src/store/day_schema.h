// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <optional>
#include <span>

namespace tickwell::store {

enum class ColumnType { Text, Integer, Date };

struct SchemaColumn {
    QStringView name;
    ColumnType type = ColumnType::Text;
};

/// A table without its hidden column "id", which keeps the rows in the order of insertion.
struct SchemaTable {
    QStringView name;
    std::span<const SchemaColumn> columns;
};

/// The five tables of the day database.
std::span<const SchemaTable> SchemaTables();

/// The table of that name, ignoring case; null if there is none.
const SchemaTable* FindTable(QStringView name);

/// The index in `columns` of the column of that name, ignoring case.
std::optional<std::size_t> FindColumn(std::span<const SchemaColumn> columns, QStringView name);

}  // namespace tickwell::store
