// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::platform {

/// The drive or image that discs are read from: `named` if it is not empty, otherwise the first drive of the
/// machine; empty if there is none. Only looks at file names and accesses no drive.
QString CdSource(const QString& named, const QString& deviceFolder = QStringLiteral("/dev"));

}  // namespace tickwell::platform
