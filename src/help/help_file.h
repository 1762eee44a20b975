// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// The HTML text of a help file. Throws RunTimeError when it cannot be read, or is no text.
QString ReadHelpFile(const QString& path);

}  // namespace tickwell
