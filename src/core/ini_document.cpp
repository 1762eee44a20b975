// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ini_document.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/byte_order_mark.h"

namespace tickwell {

namespace {

constexpr std::array<std::pair<char, char>, 6> kEscapes{
    {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {' ', 's'}, {'\t', 't'}, {'\0', '0'}}};

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

QByteArrayView WithoutBlanks(QByteArrayView text) {
    while (!text.isEmpty() && IsBlank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && IsBlank(text.back())) {
        text.chop(1);
    }
    return text;
}

/// A line without its line ending and without the byte order mark that some editors write.
QByteArrayView Content(QByteArrayView line) {
    QByteArrayView text = line.startsWith(kByteOrderMark) ? line.sliced(kByteOrderMark.size()) : line;
    if (text.endsWith('\n')) {
        text.chop(1);
    }
    if (text.endsWith('\r')) {
        text.chop(1);
    }
    return WithoutBlanks(text);
}

std::optional<QByteArrayView> SectionName(QByteArrayView line) {
    const QByteArrayView text = Content(line);
    if (!text.startsWith('[') || !text.endsWith(']') || text.size() < 2) {
        return std::nullopt;
    }
    return WithoutBlanks(text.sliced(1, text.size() - 2));
}

/// Key and value as stored, or nullopt for comments, blank lines and lines that are neither.
std::optional<std::pair<QByteArrayView, QByteArrayView>> KeyLine(QByteArrayView line) {
    const QByteArrayView text = Content(line);
    const qsizetype equals = text.indexOf('=');
    if (equals < 1 || text.startsWith('#') || text.startsWith(';')) {
        return std::nullopt;
    }
    return std::pair(WithoutBlanks(text.first(equals)), WithoutBlanks(text.sliced(equals + 1)));
}

}  // namespace

IniDocument::IniDocument(const QByteArray& bytes) {
    for (qsizetype begin = 0; begin < bytes.size();) {
        const qsizetype newline = bytes.indexOf('\n', begin);
        const qsizetype end = newline < 0 ? bytes.size() : newline + 1;
        m_lines.append(bytes.sliced(begin, end - begin));
        begin = end;
    }
    if (!m_lines.isEmpty() && m_lines.front().endsWith("\r\n")) {
        m_lineEnd = "\r\n";
    }
    IndexLines();
}

/// Index of the line after the section's heading, or -1.
qsizetype IniDocument::SectionBegin(const QByteArray& section) const {
    const auto heading = std::find_if(m_lines.begin(), m_lines.end(),
                                      [&](const QByteArray& line) { return SectionName(line) == section; });
    return heading == m_lines.end() ? -1 : heading - m_lines.begin() + 1;
}

/// A section may occur several times in the file.
void IniDocument::IndexLines() {
    std::optional<QByteArray> section;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (const auto name = SectionName(m_lines[i])) {
            section = name->toByteArray();
        } else if (section) {
            const auto line = KeyLine(m_lines[i]);
            if (line && FindKey(*section, line->first.toByteArray()) < 0) {
                m_keys.insert({*section, line->first.toByteArray()}, i);
            }
        }
    }
}

/// Index of the key's line, or -1.
qsizetype IniDocument::FindKey(const QByteArray& section, const QByteArray& key) const {
    return m_keys.value({section, key}, -1);
}

std::optional<QByteArray> IniDocument::Value(const QString& section, const QString& key) const {
    const qsizetype at = FindKey(section.toUtf8(), key.toUtf8());
    if (at < 0) {
        return std::nullopt;
    }
    return UnescapedValue(KeyLine(m_lines[at])->second.toByteArray());
}

void IniDocument::SetValue(const QString& section, const QString& key, const QString& value) {
    const QByteArray line = key.toUtf8() + '=' + EscapedValue(value);
    if (const qsizetype at = FindKey(section.toUtf8(), key.toUtf8()); at >= 0) {
        if (UnescapedValue(KeyLine(m_lines[at])->second.toByteArray()) != value.toUtf8()) {
            m_lines[at] = line + (m_lines[at].endsWith("\r\n") ? "\r\n" : "\n");
        }
        return;
    }
    qsizetype at = SectionBegin(section.toUtf8());
    if (at < 0) {
        InsertLine(m_lines.size(), '[' + section.toUtf8() + ']');
        at = m_lines.size();
    }
    // After the section's last key, before the blank lines that separate it from the next section.
    qsizetype end = at;
    for (qsizetype i = at; i < m_lines.size() && !SectionName(m_lines[i]); ++i) {
        if (!Content(m_lines[i]).isEmpty()) {
            end = i + 1;
        }
    }
    InsertLine(end, line);
    m_keys.insert({section.toUtf8(), key.toUtf8()}, end);
}

void IniDocument::InsertLine(qsizetype at, const QByteArray& text) {
    if (at > 0 && !m_lines[at - 1].endsWith('\n')) {
        // A file truncated in the middle of a CR LF already has the CR.
        m_lines[at - 1] += m_lines[at - 1].endsWith('\r') ? "\n" : m_lineEnd;
    }
    m_lines.insert(at, text + m_lineEnd);
    for (qsizetype& line : m_keys) {
        line += line >= at ? 1 : 0;
    }
}

QByteArray EscapedValue(const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    QByteArray stored;
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const bool inner = i > 0 && i + 1 < utf8.size();
        const auto* escape =
            std::find_if(kEscapes.begin(), kEscapes.end(), [&](const auto& pair) { return pair.first == c; });
        if (escape == kEscapes.end() || (IsBlank(c) && inner)) {
            stored += c;
        } else {
            stored += '\\';
            stored += escape->second;
        }
    }
    return stored;
}

QByteArray UnescapedValue(const QByteArray& stored) {
    QByteArray value;
    for (qsizetype i = 0; i < stored.size(); ++i) {
        const char next = i + 1 < stored.size() ? stored[i + 1] : '\x1A';
        const auto* escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                          [&](const auto& pair) { return pair.second == next; });
        if (stored[i] == '\\' && escape != kEscapes.end()) {
            value += escape->first;
            ++i;
        } else {
            value += stored[i];
        }
    }
    return value;
}

}  // namespace tickwell
