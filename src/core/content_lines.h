// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>

#include "core/errors.h"

namespace tickwell {

/// A line of an iCalendar or vCard file, unfolded.
struct ContentLine {
    int number = 0;         ///< of its first line in the file, counted from 1
    QByteArray name;        ///< in capitals, without its group
    QByteArray parameters;  ///< with the semicolon before each; empty if there are none
    QByteArray value;
};

/// A line that is not read, and with it the entire file.
class ContentLineError : public RunTimeError {
public:
    enum class Kind { TooLong, NotUtf8 };

    ContentLineError(Kind kind, int line);

    Kind Problem() const { return m_kind; }
    int Line() const { return m_line; }

private:
    Kind m_kind;
    int m_line;
};

/// Splits a file into its content lines. Only wanted ones are unfolded and kept, so that a picture inside a
/// file costs neither memory nor time.
class ContentLines {
public:
    static constexpr qsizetype kLongest = qsizetype{64} * 1024;  ///< bytes

    using IsWanted = std::function<bool(const QByteArray& name)>;

    /// `bytes` outlive this object.
    ContentLines(QByteArrayView bytes, IsWanted isWanted);

    /// The next wanted line; nullopt at the end. Throws ContentLineError if a line of the file, or a wanted
    /// unfolded one, has more than kLongest bytes, or if a wanted one is not UTF-8.
    std::optional<ContentLine> Next();

    /// Bytes read so far.
    qsizetype Position() const { return m_position; }

private:
    std::optional<QByteArrayView> TakeLine();
    bool IsContinued() const;
    std::optional<ContentLine> Unfolded(QByteArrayView first);

    QByteArrayView m_bytes;
    IsWanted m_isWanted;
    qsizetype m_position = 0;
    int m_line = 0;  // number of the last line taken
};

/// The value of a parameter without its quotes, in capitals: for ";VALUE=date" and "VALUE" it is "DATE".
/// Empty if there is none.
QByteArray ParameterOf(const ContentLine& line, QByteArrayView name);

/// A text value with its escapes resolved: "\\n" is a line break, and a backslash before any other character
/// only stands for that character.
QString UnescapedText(const QByteArray& value);

/// The reverse: what UnescapedText turns into `text`, in UTF-8.
QByteArray EscapedText(const QString& text);

/// A content line folded after at most 75 bytes, never inside a character, with CR LF at its end.
QByteArray FoldedLine(const QByteArray& line);

}  // namespace tickwell
