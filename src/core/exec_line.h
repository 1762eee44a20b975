// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// A command as a desktop entry has it behind "Exec=": words with a blank between them, quoted and escaped
/// where a desktop would take them for something else. `words`: the program first. What the file itself
/// escapes (IniDocument) is not escaped here.
QString ExecLine(const QStringList& words);

}  // namespace tickwell
