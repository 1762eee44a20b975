// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "store/sql_tree.h"

namespace tickwell {

/// The five tables as plain lists, and what a statement that was let through does to them: worked out from
/// the statement alone, with no engine.
class SqlModel {
public:
    /// A value for each column of the table, as an answer has it.
    using Row = std::vector<SqlLiteral>;

    /// The rows of the table that stands at `index` among those of the schema.
    std::vector<Row>& Rows(std::size_t index) { return m_tables.at(index); }

    /// What a SELECT gives.
    std::vector<Row> Answer(const SelectStatement& select) const;

    /// How many rows another statement changes; nothing where it has to be refused, since it leaves a column
    /// of a new row empty.
    std::optional<int> Change(const SqlStatement& statement);

private:
    std::optional<int> Change(const InsertStatement& insert);
    int Change(const UpdateStatement& update);
    int Change(const DeleteStatement& erase);

    std::array<std::vector<Row>, 5> m_tables;
};

/// The table's place among those of the schema.
std::size_t TableIndex(const QString& name);

/// The statement once more, in words that mean the same.
QString Printed(const SqlStatement& statement);

}  // namespace tickwell
