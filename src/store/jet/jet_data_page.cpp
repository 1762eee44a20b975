// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_data_page.h"

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

JetDataPage::JetDataPage(const JetPages& pages, quint32 number)
    : m_page(pages.Page(number, JetPages::Type::Data)),
      m_rowOffsets(pages.Layout().rowOffsets),
      m_rowCount(m_page.U16(pages.Layout().rowCount)) {
    if (m_rowCount > (m_page.Size() - m_rowOffsets) / 2) {
        throw JetDamageError(u"ページ %1 の行数"_s.arg(number));
    }
}

quint16 JetDataPage::Word(int row) const {
    if (row < 0 || row >= m_rowCount) {
        throw JetDamageError(u"行番号 %1"_s.arg(row));
    }
    return m_page.U16(WordAt(row));
}

ByteView JetDataPage::Row(int row) const {
    const qsizetype start = Start(row);
    const qsizetype end = row == 0 ? m_page.Size() : Start(row - 1);
    if (start < WordAt(m_rowCount) || start >= end) {
        throw JetDamageError(u"行の位置"_s);
    }
    return m_page.Slice(start, end - start);
}

}  // namespace tickwell::store
