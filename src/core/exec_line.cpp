// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/exec_line.h"

#include <algorithm>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QString ExecWord(const QString& word) {
    // The characters that desktop entries (freedesktop.org) reserve, and those of them that must be escaped
    // even within quotes.
    constexpr QStringView kReserved = u" \t\n\"'\\><~|&;$*?#()`";
    constexpr QStringView kEscaped = u"\"`$\\";
    const bool isPlain = !word.isEmpty() && std::none_of(word.begin(), word.end(), [&](QChar character) {
        return kReserved.contains(character);
    });
    QString text;
    for (const QChar character : word) {
        if (kEscaped.contains(character)) {
            text += u'\\';
        } else if (character == u'%') {  // would begin a field code
            text += u'%';
        }
        text += character;
    }
    return isPlain ? text : QString(u'"' + text + u'"');
}

}  // namespace

QString ExecLine(const QStringList& words) {
    QStringList line;
    for (const QString& word : words) {
        line.append(ExecWord(word));
    }
    return line.join(u' ');
}

}  // namespace tickwell
