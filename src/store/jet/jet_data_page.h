// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/jet/jet_pages.h"

namespace tickwell {

/// One data page: rows that are packed from its end towards its beginning.
class JetDataPage {
public:
    /// Throws JetDamageError where `number` is no data page.
    JetDataPage(const JetPages& pages, quint32 number);

    /// Definition page of the table that the rows belong to.
    quint32 Table() const { return m_page.U32(4); }

    /// At most what a page has room for.
    int RowCount() const { return m_rowCount; }

    /// Not to be met when the table is gone through: deleted, or the far end of a pointer.
    bool IsSkipped(int row) const { return (Word(row) & 0x8000) != 0; }

    /// The row moved to another page, and Row() is its four-byte address.
    bool IsPointer(int row) const { return (Word(row) & 0x4000) != 0; }

    /// The bytes of row 0..RowCount()-1. Never empty.
    ByteView Row(int row) const;

private:
    quint16 Word(int row) const;
    qsizetype Start(int row) const { return Word(row) & 0x1FFF; }
    qsizetype WordAt(int row) const { return m_rowOffsets + qsizetype{2} * row; }

    ByteView m_page;
    qsizetype m_rowOffsets;
    int m_rowCount;
};

}  // namespace tickwell
