// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <optional>
#include <span>

namespace tickwell {

enum class ColumnType { Text, Integer, Date };

struct SchemaColumn {
    QStringView name;
    ColumnType type = ColumnType::Text;
};

/// A table as it is spoken of: without the hidden id, which keeps its rows in the order in which they came.
struct SchemaTable {
    QStringView name;
    std::span<const SchemaColumn> columns;
};

/// The five tables of the day database.
std::span<const SchemaTable> SchemaTables();

/// The table of that name, whatever its case; null when there is none.
const SchemaTable* FindTable(QStringView name);

/// Where the column of that name, whatever its case, stands in `columns`.
std::optional<std::size_t> FindColumn(std::span<const SchemaColumn> columns, QStringView name);

}  // namespace tickwell
