// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "store/sql_tree.h"

namespace tickwell {

/// The five tables as plain lists, and the effect of accepted statements on them, computed from the statement
/// without SQLite.
class SqlModel {
public:
    /// One value per column of the table, of the type that a query returns.
    using Row = std::vector<store::SqlLiteral>;

    /// The rows of the table at `index` in the schema.
    std::vector<Row>& Rows(std::size_t index) { return m_tables.at(index); }

    /// The result of a SELECT.
    std::vector<Row> Answer(const store::SelectStatement& select) const;

    /// Executes a statement other than SELECT and returns the number of changed rows; nullopt if the
    /// statement must be refused because it leaves a column of a new row empty.
    std::optional<int> Change(const store::SqlStatement& statement);

private:
    std::optional<int> Change(const store::InsertStatement& insert);
    int Change(const store::UpdateStatement& update);
    int Change(const store::DeleteStatement& erase);

    std::array<std::vector<Row>, 5> m_tables;
};

/// The index of the table in the schema.
std::size_t TableIndex(const QString& name);

/// The statement as text, in another spelling with the same meaning.
QString Printed(const store::SqlStatement& statement);

}  // namespace tickwell
