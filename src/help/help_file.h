// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::help {

/// Reads the HTML text of a help file. Throws RunTimeError if the file cannot be read, is not text or is too
/// complex to show.
QString ReadHelpFile(const QString& path);

}  // namespace tickwell::help
