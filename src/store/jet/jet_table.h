// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "store/jet/jet_row.h"

namespace tickwell {

/// One table of a Jet file, which must outlive it.
class JetTable {
public:
    /// `page`: the first page of its definition. Throws JetDamageError.
    JetTable(const JetPages& pages, quint32 page)
        : m_pages(&pages), m_definition(ReadDefinition(pages, page)) {}

    /// How many rows the definition says that there are.
    quint32 RowCount() const { return m_definition.rowCount; }

    /// The column of that name in any case of letters, or null.
    const JetColumn* Find(QStringView name) const;

    /// Hands out the rows in the order in which the file keeps them. Throws JetDamageError.
    void ForEachRow(const std::function<void(const JetRow&)>& use) const;

private:
    const JetPages* m_pages;
    JetDefinition m_definition;
};

}  // namespace tickwell
