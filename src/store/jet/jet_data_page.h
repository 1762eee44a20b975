// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/jet/jet_pages.h"

namespace tickwell::store {

/// One data page: its rows are stored from its end towards its beginning.
class JetDataPage {
public:
    /// Throws JetDamageError if page `number` is not a data page.
    JetDataPage(const JetPages& pages, quint32 number);

    /// The definition page of the table that the rows belong to.
    quint32 Table() const { return m_page.U32(4); }

    /// Never more than a page has room for.
    int RowCount() const { return m_rowCount; }

    /// Not part of a table scan: deleted, or the target of a pointer.
    bool IsSkipped(int row) const { return (Word(row) & 0x8000) != 0; }

    /// The row was moved to another page; Row() is then its four-byte address.
    bool IsPointer(int row) const { return (Word(row) & 0x4000) != 0; }

    /// The bytes of a row, 0 to RowCount() - 1. Never empty.
    ByteView Row(int row) const;

private:
    quint16 Word(int row) const;
    qsizetype Start(int row) const { return Word(row) & 0x1FFF; }
    qsizetype WordAt(int row) const { return m_rowOffsets + qsizetype{2} * row; }

    ByteView m_page;
    qsizetype m_rowOffsets;
    int m_rowCount;
};

}  // namespace tickwell::store
