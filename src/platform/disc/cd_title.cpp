// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_title.h"

#include <QList>
#include <QStringDecoder>
#include <algorithm>
#include <optional>

#include "cd_helper/protocol.h"
#include "core/one_line.h"
#include "media/ports/cd_drive.h"

namespace tickwell::platform {

namespace {

bool IsHexadecimal(char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'F');
}

bool IsPlain(char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= 'a' && letter <= 'z');
}

/// Decodes bytes; nullopt if they are not valid in this encoding.
std::optional<QString> Decoded(const QByteArray& bytes, const char* encoding) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(bytes);
    return decoder.isValid() && !decoder.hasError() ? std::optional(text) : std::nullopt;
}

/// Whether a character has no glyph of its own, or is unassigned.
bool IsInvisible(char32_t character) {
    switch (QChar::category(character)) {
        case QChar::Other_Format:  // includes the controls of text direction
        case QChar::Other_Surrogate:
        case QChar::Other_PrivateUse:
        case QChar::Other_NotAssigned:
            return true;
        default:
            return false;
    }
}

}  // namespace

bool IsEncodedTitle(const QByteArray& text) {
    qsizetype bytes = 0;
    for (qsizetype i = 0; i < text.size(); ++i, ++bytes) {
        if (text[i] != '%') {
            if (!IsPlain(text[i])) {
                return false;
            }
            continue;
        }
        if (i + 2 >= text.size() || !IsHexadecimal(text[i + 1]) || !IsHexadecimal(text[i + 2])) {
            return false;
        }
        i += 2;
    }
    return bytes > 0 && bytes <= cd_helper::kMostTitleBytes;
}

QString TitleFrom(const QByteArray& text) {
    const QByteArray bytes = QByteArray::fromPercentEncoding(text);
    const auto utf8 = Decoded(bytes, "UTF-8");
    const QString title = OnOneLine((utf8 ? utf8 : Decoded(bytes, "Shift_JIS")).value_or(QString()));
    QList<char32_t> characters;
    for (const char32_t character : title.toUcs4()) {
        if (!IsInvisible(character)) {
            characters.append(character);
        }
    }
    characters.resize(std::min<qsizetype>(characters.size(), media::kLongestCdTitle));
    return QString::fromUcs4(characters.constData(), characters.size()).trimmed();
}

}  // namespace tickwell::platform
