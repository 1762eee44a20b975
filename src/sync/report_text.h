// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::sync {

struct Report;

/// The report in a few lines for the user.
QString ReportText(const Report& report);

}  // namespace tickwell::sync
