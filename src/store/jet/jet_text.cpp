// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_text.h"

#include <iconv.h>

#include <cerrno>
#include <cstring>

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 kShiftJis = 932;

// According to POSIX, a failed iconv_open returns (iconv_t)-1, not a null pointer.
bool IsOpen(iconv_t descriptor) {
    return reinterpret_cast<qintptr>(descriptor) != -1;
}

iconv_t Open(quint16 codePage) {
    const QByteArray name = "CP"_ba + QByteArray::number(codePage);
    return iconv_open(Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE", name.constData());
}

QString Utf16(const ByteView& bytes) {
    if (bytes.Size() % 2 != 0) {
        throw JetDamageError(u"文字列の長さ"_s);
    }
    QString text;
    text.reserve(bytes.Size() / 2);
    for (qsizetype at = 0; at < bytes.Size(); at += 2) {
        text += QChar(bytes.U16(at));
    }
    return text;
}

/// One byte per character; a zero byte switches to two bytes per character, the next zero byte back.
QString Decompressed(const ByteView& bytes) {
    QString text;
    bool wide = false;
    for (qsizetype at = 0; at < bytes.Size();) {
        if (bytes.U8(at) == 0) {
            wide = !wide;
            ++at;
        } else if (wide) {
            text += QChar(bytes.U16(at));
            at += 2;
        } else {
            text += QChar(quint16{bytes.U8(at)});
            ++at;
        }
    }
    return text;
}

/// Replaces unpaired surrogates, which are not characters and not valid in a database of Unicode texts.
QString WithoutHalfPairs(QString text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (text.at(i).isSurrogate()) {
            text[i] = QChar::ReplacementCharacter;
        }
    }
    return text;
}

}  // namespace

void CodePage::Closer::operator()(void* descriptor) const {
    if (IsOpen(descriptor)) {
        iconv_close(descriptor);
    }
}

CodePage::CodePage(quint16 number) : m_number(number), m_descriptor(Open(number)) {
    if (!IsOpen(m_descriptor.get())) {
        throw JetError(u"対応していない文字コード %1 のデータベースです。"_s.arg(number));
    }
}

bool CodePage::IsKnown(quint16 number) {
    const std::unique_ptr<void, Closer> descriptor(Open(number));
    return IsOpen(descriptor.get());
}

QString CodePage::Decode(QByteArrayView bytes) const {
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);  // longer than the result for any code page
    QByteArray copy = bytes.toByteArray();                  // iconv's input is not const
    char* in = copy.data();
    auto inLeft = static_cast<size_t>(copy.size());
    char* out = reinterpret_cast<char*>(text.data());
    auto outLeft = static_cast<size_t>(text.size()) * sizeof(QChar);
    iconv(m_descriptor.get(), nullptr, nullptr, nullptr, nullptr);
    while (inLeft > 0 && iconv(m_descriptor.get(), &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1)) {
        if (errno == E2BIG || outLeft < sizeof(QChar)) {
            throw JetDamageError(u"文字列"_s);
        }
        const QChar replacement = Undefined(*in);
        std::memcpy(out, &replacement, sizeof(QChar));
        out += sizeof(QChar);
        outLeft -= sizeof(QChar);
        ++in;
        --inLeft;
    }
    if (iconv(m_descriptor.get(), nullptr, nullptr, &out, &outLeft) == static_cast<size_t>(-1)) {
        throw JetDamageError(u"文字列"_s);
    }
    text.truncate(text.size() - static_cast<qsizetype>(outLeft / sizeof(QChar)));
    return text;
}

/// The character that Windows assigns to a byte that iconv does not know.
QChar CodePage::Undefined(char byte) const {
    const quint16 value = static_cast<quint8>(byte);
    if (m_number == kShiftJis) {
        switch (value) {
            case 0x80:
                return QChar(0x0080);
            case 0xA0:
                return QChar(0xF8F0);
            case 0xFD:
            case 0xFE:
            case 0xFF:
                return QChar(0xF8F1 + value - 0xFD);
            default:
                return QChar::ReplacementCharacter;
        }
    }
    const bool singleByte = m_number >= 1250 && m_number <= 1258;
    return singleByte && value >= 0x80 && value <= 0x9F ? QChar(value) : QChar(QChar::ReplacementCharacter);
}

JetText::JetText(const JetPages& pages, quint16 codePage) {
    if (pages.Layout().version == JetVersion::Jet3) {
        const bool own = codePage != 0 && CodePage::IsKnown(codePage);
        m_codePage = std::make_unique<CodePage>(own ? codePage : pages.CodePage());
    }
}

QString JetText::Decode(const ByteView& field) const {
    if (m_codePage) {
        return m_codePage->Decode(field.Bytes());
    }
    const bool compressed = field.Size() >= 2 && field.U16(0) == 0xFEFF;
    return WithoutHalfPairs(compressed ? Decompressed(field.Slice(2, field.Size() - 2)) : Utf16(field));
}

QString JetText::DecodeName(const ByteView& name) const {
    return m_codePage ? m_codePage->Decode(name.Bytes()) : Utf16(name);
}

}  // namespace tickwell::store
