// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <optional>
#include <utility>

namespace tickwell {

/// A settings file in memory: sections in square brackets, one "key=value" a line, UTF-8. It keeps every byte
/// that it was not told to change: unknown sections and keys, comments, blank lines, damaged lines, the kind
/// of line end. Where a key stands twice in a section, the first one counts.
class IniDocument {
public:
    explicit IniDocument(const QByteArray& bytes);

    /// The value as stored, undone from its escapes but not yet decoded; nothing where the key is absent.
    std::optional<QByteArray> Value(const QString& section, const QString& key) const;

    /// Sets a value in place, or appends key and section where they are missing.
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

/// How a value stands behind the "=": backslashes and line breaks escaped, and blanks at either end, so that
/// a hand may align the file without changing it.
QByteArray EscapedValue(const QString& value);

/// The reverse. A backslash before any other character stands for itself: hand-written paths are taken as
/// meant.
QByteArray UnescapedValue(const QByteArray& stored);

}  // namespace tickwell
