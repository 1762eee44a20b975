// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "store/jet/jet_definition.h"

namespace tickwell::store {

/// One row of a table: the number of columns, the fixed fields, the variable fields, the offsets of the
/// latter in reverse order, and a bit for each column that has a value.
class JetRow {
public:
    JetRow(const ByteView& row, const JetLayout& layout) : m_row(row), m_layout(&layout) {}

    /// The bytes of a column's field; nullopt if it is NULL or the column was added after the row was
    /// written. A fixed field has the size of its type. Throws JetDamageError.
    std::optional<ByteView> Field(const JetColumn& column) const;

private:
    ByteView FixedField(const JetColumn& column, qsizetype maskAt) const;
    ByteView VariableField(const JetColumn& column, qsizetype maskAt) const;

    ByteView m_row;
    const JetLayout* m_layout;
};

}  // namespace tickwell::store
