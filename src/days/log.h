// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::days {

/// Warnings by default; QT_LOGGING_RULES="tickwell.days.debug=true" shows all.
inline Q_LOGGING_CATEGORY(DaysLog, "tickwell.days", QtWarningMsg)

}  // namespace tickwell::days
