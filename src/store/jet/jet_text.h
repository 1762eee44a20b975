// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "store/jet/jet_pages.h"

namespace tickwell {

/// Texts of one Windows code page, by the C library's iconv: its CP932 is Microsoft's table for every pair of
/// bytes; the few single bytes that it leaves out are added here.
class CodePage {
public:
    /// Throws JetError for a code page that is not known.
    explicit CodePage(quint16 number);

    static bool IsKnown(quint16 number);

    /// A byte that means nothing in the code page gives U+FFFD.
    QString Decode(QByteArrayView bytes) const;

private:
    struct Closer {
        void operator()(void* descriptor) const;
    };

    QChar Undefined(char byte) const;

    quint16 m_number;
    std::unique_ptr<void, Closer> m_descriptor;  // an iconv_t
};

/// Texts of one column of a Jet file. In Jet 3 they are in a code page, in Jet 4 in UTF-16 and perhaps
/// compressed.
class JetText {
public:
    /// `codePage`: what the column says of itself; where that is nothing we know, the database's own is
    /// meant.
    explicit JetText(const JetPages& pages, quint16 codePage = 0);

    /// The text of a field. Half a surrogate pair gives U+FFFD. Throws JetDamageError.
    QString Decode(const ByteView& field) const;

    /// The name of a column, which is never compressed.
    QString DecodeName(const ByteView& name) const;

private:
    std::unique_ptr<CodePage> m_codePage;  // Jet 3 only
};

}  // namespace tickwell
