// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include "store/jet/byte_view.h"
#include "store/jet/jet_layout.h"

namespace tickwell::store {

enum class JetFileKind { Other, Jet, Ace };

/// The kind of a file, determined from at least its first 20 bytes.
JetFileKind KindOfFile(QByteArrayView firstBytes);

/// The address of a row of a data page in the file.
struct JetRowAddress {
    quint32 page = 0;
    quint8 row = 0;

    /// Decodes the four bytes at `at`: row, then page.
    static JetRowAddress At(const ByteView& view, qsizetype at);

    bool operator==(const JetRowAddress&) const = default;
};

/// The decrypted pages of a Jet file in memory. It owns the bytes: views of pages are valid during its
/// lifetime.
class JetPages {
public:
    enum class Type : quint8 { Data = 1, Definition = 2, UsageBitmap = 5 };

    static constexpr qint64 kMaximumSize = qint64{64} * 1024 * 1024;  // bytes

    /// `file`: the complete file. Throws JetError if it is not a Jet 3 or Jet 4 file, is too large, or is
    /// truncated.
    explicit JetPages(QByteArray file);

    const JetLayout& Layout() const { return *m_layout; }
    quint32 Count() const { return m_count; }
    quint16 CodePage() const { return m_codePage; }  // of the database

    /// Page 1 to Count() - 1, of any type.
    ByteView Page(quint32 number) const;

    /// The same; throws JetDamageError if the page is not of that type.
    ByteView Page(quint32 number, Type type) const;

private:
    void Decrypt(quint32 key);

    QByteArray m_file;
    const JetLayout* m_layout;
    quint32 m_count;
    quint16 m_codePage = 0;
};

}  // namespace tickwell::store
