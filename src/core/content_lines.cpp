// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/content_lines.h"

#include <QStringDecoder>
#include <algorithm>
#include <utility>

#include "core/byte_order_mark.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLineBytes = 75;

/// Whether a byte of UTF-8 is not the first one of its character.
bool IsInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

QString ReasonOf(ContentLineError::Kind kind, int line) {
    return kind == ContentLineError::Kind::TooLong
               ? u"%1行目が長すぎます（%2 KiBまで）。"_s.arg(line).arg(ContentLines::kLongest / 1024)
               : u"%1行目がUTF-8ではありません。"_s.arg(line);
}

/// The position of the first of `ends` outside of double quotes, or the size.
qsizetype EndBefore(QByteArrayView text, QByteArrayView ends, qsizetype from = 0) {
    bool isQuoted = false;
    for (qsizetype i = from; i < text.size(); ++i) {
        isQuoted = isQuoted != (text[i] == '"');
        if (!isQuoted && ends.contains(text[i])) {
            return i;
        }
    }
    return text.size();
}

QByteArray LineName(QByteArrayView line) {
    const auto* end = std::find_if(line.begin(), line.end(), [](char c) { return c == ':' || c == ';'; });
    const QByteArrayView name = line.first(end - line.begin());
    return name.sliced(name.lastIndexOf('.') + 1).toByteArray().trimmed().toUpper();
}

bool IsUtf8(QByteArrayView bytes) {
    if (std::none_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) < 0; })) {
        return true;
    }
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError();
}

}  // namespace

ContentLineError::ContentLineError(Kind kind, int line)
    : RunTimeError(ReasonOf(kind, line)), m_kind(kind), m_line(line) {}

ContentLines::ContentLines(QByteArrayView bytes, IsWanted isWanted)
    : m_bytes(bytes), m_isWanted(std::move(isWanted)) {
    if (bytes.startsWith(kByteOrderMark)) {
        m_position = kByteOrderMark.size();
    }
}

std::optional<ContentLine> ContentLines::Next() {
    while (const auto line = TakeLine()) {
        if (auto content = line->isEmpty() ? std::nullopt : Unfolded(*line)) {
            return content;
        }
    }
    return std::nullopt;
}

/// The next line of the file without its end; nullopt at the end of the file.
std::optional<QByteArrayView> ContentLines::TakeLine() {
    if (m_position >= m_bytes.size()) {
        return std::nullopt;
    }
    ++m_line;
    const QByteArrayView rest = m_bytes.sliced(m_position);
    const qsizetype end = rest.indexOf('\n');
    QByteArrayView line = end < 0 ? rest : rest.first(end);
    m_position += line.size() + (end < 0 ? 0 : 1);
    if (line.endsWith('\r')) {
        line.chop(1);
    }
    if (line.size() > kLongest) {
        throw ContentLineError(ContentLineError::Kind::TooLong, m_line);
    }
    return line;
}

bool ContentLines::IsContinued() const {
    return m_position < m_bytes.size() && (m_bytes[m_position] == ' ' || m_bytes[m_position] == '\t');
}

/// Takes the rest of a content line; nullopt if it is not wanted.
std::optional<ContentLine> ContentLines::Unfolded(QByteArrayView first) {
    const int number = m_line;
    const QByteArray name = LineName(first);
    const bool isWanted = m_isWanted(name);
    QByteArray whole = isWanted ? first.toByteArray() : QByteArray();
    while (IsContinued()) {
        const QByteArrayView more = *TakeLine();
        if (isWanted) {
            whole.append(more.sliced(1));
        }
        if (whole.size() > kLongest) {
            throw ContentLineError(ContentLineError::Kind::TooLong, number);
        }
    }
    if (!isWanted) {
        return std::nullopt;
    }
    if (!IsUtf8(whole)) {
        throw ContentLineError(ContentLineError::Kind::NotUtf8, number);
    }
    const qsizetype start = EndBefore(whole, ":;");
    const qsizetype end = EndBefore(whole, ":", start);
    return ContentLine{.number = number,
                       .name = name,
                       .parameters = whole.mid(start, end - start),
                       .value = whole.mid(end + 1)};
}

QByteArray ParameterOf(const ContentLine& line, QByteArrayView name) {
    const QByteArrayView all = line.parameters;
    for (qsizetype start = 0; start < all.size();) {
        const qsizetype end = EndBefore(all, ";", start + 1);
        const QByteArrayView one = all.sliced(start + 1, end - start - 1);
        const qsizetype equals = one.indexOf('=');
        if (equals >= 0 && one.first(equals).compare(name, Qt::CaseInsensitive) == 0) {
            QByteArray value = one.sliced(equals + 1).toByteArray().toUpper();
            return value.size() >= 2 && value.startsWith('"') && value.endsWith('"')
                       ? value.sliced(1).chopped(1)
                       : value;
        }
        start = end;
    }
    return {};
}

QString UnescapedText(const QByteArray& value) {
    if (!value.contains('\\')) {
        return QString::fromUtf8(value);
    }
    QByteArray text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        ++i;
        text += value[i] == 'n' || value[i] == 'N' ? '\n' : value[i];
    }
    return QString::fromUtf8(text);
}

QByteArray EscapedText(const QString& text) {
    QByteArray value;
    for (const char c : text.toUtf8()) {
        if (c == '\\' || c == ';' || c == ',') {
            value += '\\';
        }
        if (c == '\n') {
            value += "\\n";
        } else {
            value += c;
        }
    }
    return value;
}

QByteArray FoldedLine(const QByteArray& line) {
    QByteArray folded;
    qsizetype start = 0;
    for (qsizetype room = kLineBytes; line.size() - start > room; room = kLineBytes - 1) {
        qsizetype end = start + room;
        while (end > start + 1 && IsInsideCharacter(line[end])) {
            --end;
        }
        folded += line.sliced(start, end - start) + "\r\n ";
        start = end;
    }
    return folded + line.sliced(start) + "\r\n";
}

}  // namespace tickwell
