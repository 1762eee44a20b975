// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "store/jet/jet_pages.h"

namespace tickwell::store {

/// Decodes the texts of one Windows code page with the C library's iconv. Its CP932 equals Microsoft's table
/// for every pair of bytes; the few single bytes that it lacks are added here.
class CodePage {
public:
    /// Throws JetError for an unknown code page.
    explicit CodePage(quint16 number);

    static bool IsKnown(quint16 number);

    /// A byte that is undefined in the code page becomes U+FFFD.
    QString Decode(QByteArrayView bytes) const;

private:
    struct Closer {
        void operator()(void* descriptor) const;
    };

    QChar Undefined(char byte) const;

    quint16 m_number;
    std::unique_ptr<void, Closer> m_descriptor;  // an iconv_t
};

/// Decodes the texts of one column of a Jet file. Jet 3 uses a code page, Jet 4 uses UTF-16, possibly
/// compressed.
class JetText {
public:
    /// `codePage`: the one in the column's definition; if it is 0 or unknown, that of the database is used.
    explicit JetText(const JetPages& pages, quint16 codePage = 0);

    /// The text of a field. An unpaired surrogate becomes U+FFFD. Throws JetDamageError.
    QString Decode(const ByteView& field) const;

    /// The name of a column, which is never compressed. Throws JetDamageError.
    QString DecodeName(const ByteView& name) const;

private:
    std::unique_ptr<CodePage> m_codePage;  // Jet 3 only
};

}  // namespace tickwell::store
