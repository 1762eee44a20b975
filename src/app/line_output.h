// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::app {

/// Writes lines in UTF-8, whatever the locale, to a file descriptor such as that of standard output.
class LineOutput {
public:
    /// `descriptor` remains open and owned by the caller.
    explicit LineOutput(int descriptor) : m_descriptor(descriptor) {}

    /// Both return false once the reader has closed the pipe (SIGPIPE must be ignored); writing more is then
    /// pointless. They throw RunTimeError if the lines cannot be written.
    bool Add(const QString& line);  ///< `line`: without a line feed
    bool Flush();                   ///< to be called after the last line

private:
    int m_descriptor;
    QByteArray m_bytes;  // not yet written
    bool m_isRead = true;
};

}  // namespace tickwell::app
