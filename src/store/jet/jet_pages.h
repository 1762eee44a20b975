// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include "store/jet/byte_view.h"
#include "store/jet/jet_layout.h"

namespace tickwell {

enum class JetFileKind { Other, Jet, Ace };

/// What a file is by its first 20 bytes or more.
JetFileKind KindOfFile(QByteArrayView firstBytes);

/// A row of a data page, as the file refers to it.
struct JetRowAddress {
    quint32 page = 0;
    quint8 row = 0;

    /// From the four bytes at `at`: the row, then the page.
    static JetRowAddress At(const ByteView& view, qsizetype at);

    bool operator==(const JetRowAddress&) const = default;
};

/// The pages of a Jet file in memory, in clear. It owns the bytes: views of pages live as long as this does.
class JetPages {
public:
    enum class Type : quint8 { Data = 1, Definition = 2, UsageBitmap = 5 };

    static constexpr qint64 kMaximumSize = qint64{64} * 1024 * 1024;  // bytes

    /// `file`: the whole file. Throws JetError where it is no Jet 3 or Jet 4 file, too large, or cut off.
    explicit JetPages(QByteArray file);

    const JetLayout& Layout() const { return *m_layout; }
    quint32 Count() const { return m_count; }
    quint16 CodePage() const { return m_codePage; }  // of the whole database

    /// Page 1..Count()-1, whatever it holds.
    ByteView Page(quint32 number) const;

    /// The same, where the page must be of one type.
    ByteView Page(quint32 number, Type type) const;

private:
    void Decrypt(quint32 key);

    QByteArray m_file;
    const JetLayout* m_layout;
    quint32 m_count;
    quint16 m_codePage = 0;
};

}  // namespace tickwell
