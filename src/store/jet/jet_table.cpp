// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_table.h"

#include <QSet>
#include <algorithm>

#include "store/jet/jet_data_page.h"
#include "store/jet/jet_error.h"
#include "store/jet/jet_usage_map.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

/// Finds the current positions of moved rows.
class MovedRows {
public:
    MovedRows(const JetPages& pages, quint32 table) : m_pages(&pages), m_table(table) {}

    ByteView Follow(const ByteView& pointer) {
        JetRowAddress address = JetRowAddress::At(pointer, 0);
        while (true) {
            const quint64 key = quint64{address.page} << 8 | address.row;
            if (m_reached.contains(key)) {  // a cycle, or two pointers to one row
                throw JetDamageError(u"移動した行"_s);
            }
            m_reached.insert(key);
            const JetDataPage page(*m_pages, address.page);
            if (page.Table() != m_table) {
                throw JetDamageError(u"移動した行"_s);
            }
            if (!page.IsPointer(address.row)) {
                return page.Row(address.row);
            }
            address = JetRowAddress::At(page.Row(address.row), 0);
        }
    }

private:
    const JetPages* m_pages;
    quint32 m_table;
    QSet<quint64> m_reached;
};

bool IsDataPage(const ByteView& page) {
    return page.U8(0) == static_cast<quint8>(JetPages::Type::Data);
}

}  // namespace

const JetColumn* JetTable::Find(QStringView name) const {
    const auto found = std::find_if(
        m_definition.columns.begin(), m_definition.columns.end(),
        [&](const JetColumn& column) { return column.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == m_definition.columns.end() ? nullptr : &*found;
}

void JetTable::ForEachRow(const std::function<void(const JetRow&)>& use) const {
    MovedRows moved(*m_pages, m_definition.page);
    for (const quint32 number : PagesInUse(*m_pages, m_definition.usedPages)) {
        if (!IsDataPage(m_pages->Page(number))) {
            continue;  // the map also contains the table's indexes
        }
        const JetDataPage page(*m_pages, number);
        if (page.Table() != m_definition.page) {
            continue;  // and its long texts
        }
        for (int row = 0; row < page.RowCount(); ++row) {
            if (!page.IsSkipped(row)) {
                const ByteView bytes = page.Row(row);
                use(JetRow(page.IsPointer(row) ? moved.Follow(bytes) : bytes, m_pages->Layout()));
            }
        }
    }
}

}  // namespace tickwell::store
