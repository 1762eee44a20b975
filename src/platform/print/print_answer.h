// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include "core/ports/printer.h"

namespace tickwell::platform {

/// Parses one line of tickwell-print's output, without its line feed. An invalid line means that the print
/// has failed.
PrintNews NewsFrom(const QByteArray& line);

/// The progress to report if tickwell-print could not be started from this path.
PrintNews NewsOfMissingHelper(const QString& path);

/// The progress to report if tickwell-print ended without an answer.
PrintNews NewsOfDeadHelper();

}  // namespace tickwell::platform
