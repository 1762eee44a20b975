// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "store/jet/jet_row.h"

namespace tickwell::store {

/// One table of a Jet file. `pages` outlives it.
class JetTable {
public:
    /// `page`: the first page of its definition. Throws JetDamageError.
    JetTable(const JetPages& pages, quint32 page)
        : m_pages(&pages), m_definition(ReadDefinition(pages, page)) {}

    /// The number of rows according to the definition.
    quint32 RowCount() const { return m_definition.rowCount; }

    /// The column of that name, ignoring case; null if there is none.
    const JetColumn* Find(QStringView name) const;

    /// Calls `use` with each row, in the order of the file. Throws JetDamageError.
    void ForEachRow(const std::function<void(const JetRow&)>& use) const;

private:
    const JetPages* m_pages;
    JetDefinition m_definition;
};

}  // namespace tickwell::store
