// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <optional>
#include <utility>

namespace tickwell {

/// A settings file in memory: sections in square brackets, one "key=value" per line, UTF-8. Everything that
/// is not changed explicitly stays byte for byte: unknown sections and keys, comments, blank lines, damaged
/// lines, line endings. If a key occurs twice in a section, the first occurrence counts.
class IniDocument {
public:
    explicit IniDocument(const QByteArray& bytes);

    /// The stored value, unescaped but not yet decoded; nullopt if the key is absent.
    std::optional<QByteArray> Value(const QString& section, const QString& key) const;

    /// Sets a value in place, or appends key and section if they are missing.
    void SetValue(const QString& section, const QString& key, const QString& value);

    QByteArray Bytes() const { return m_lines.join(); }

private:
    qsizetype SectionBegin(const QByteArray& section) const;
    qsizetype FindKey(const QByteArray& section, const QByteArray& key) const;
    void IndexLines();
    void InsertLine(qsizetype at, const QByteArray& text);

    QList<QByteArray> m_lines;                                   // each with its line end
    QHash<std::pair<QByteArray, QByteArray>, qsizetype> m_keys;  // section and key to the first such line
    QByteArray m_lineEnd = "\n";
};

/// The form in which a value is stored after the "=": backslashes, line breaks and leading and trailing
/// spaces are escaped, so that the file can be aligned by hand without changing values.
QByteArray EscapedValue(const QString& value);

/// The inverse of EscapedValue. A backslash before any other character is kept, for paths written by hand.
QByteArray UnescapedValue(const QByteArray& stored);

}  // namespace tickwell
