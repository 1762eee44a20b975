// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// Where discs are read: `named`, a drive or an image, where it is not empty; else the first drive of the
/// machine. Empty where that is not there. Looks at names alone and touches no drive.
QString CdSource(const QString& named, const QString& deviceFolder = QStringLiteral("/dev"));

}  // namespace tickwell
