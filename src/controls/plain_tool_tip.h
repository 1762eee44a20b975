// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::controls {

/// `text` for a tool tip that shows it as it is: Qt would interpret one that looks like markup as rich text.
QString PlainToolTip(const QString& text);

}  // namespace tickwell::controls
