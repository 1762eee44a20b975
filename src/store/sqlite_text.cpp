// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sqlite_text.h"

namespace tickwell::store {

namespace {

/// The code point of the UTF-8 sequence at the start of `bytes`; surrogates are accepted.
struct Decoded {
    char32_t code;
    qsizetype length;
};

constexpr Decoded kNone{QChar::ReplacementCharacter, 1};

Decoded Decode(QByteArrayView bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    if (lead < 0x80) {
        return {lead, 1};
    }
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) {
        return kNone;
    }
    char32_t code = lead & (0x7FU >> length);
    for (qsizetype i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0) != 0x80) {
            return kNone;
        }
        code = code << 6 | (byte & 0x3FU);
    }
    const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    return code >= least && code <= QChar::LastValidCodePoint ? Decoded{code, length} : kNone;
}

}  // namespace

QByteArray ToSqliteText(QStringView text) {
    if (text.isValidUtf16()) {
        return text.toUtf8();
    }
    QByteArray bytes;
    qsizetype at = 0;
    while (at < text.size()) {
        const char16_t unit = text[at].unicode();
        const bool isPair =
            QChar::isHighSurrogate(unit) && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (QChar::isSurrogate(unit) && !isPair) {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
            ++at;
            continue;
        }
        const qsizetype length = isPair ? 2 : 1;
        bytes += text.sliced(at, length).toUtf8();
        at += length;
    }
    return bytes;
}

QString FromSqliteText(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    while (!bytes.isEmpty()) {
        const Decoded decoded = Decode(bytes);
        text += QChar::fromUcs4(decoded.code);
        bytes = bytes.sliced(decoded.length);
    }
    return text;
}

}  // namespace tickwell::store
