// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// The value of the "Exec" key of a desktop entry: words separated by spaces, quoted and escaped where
/// needed. `words`: the program first. The escaping of the file format itself is left to IniDocument.
QString ExecLine(const QStringList& words);

}  // namespace tickwell
