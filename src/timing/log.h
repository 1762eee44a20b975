// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::timing {

/// Warnings by default; QT_LOGGING_RULES="tickwell.timing.debug=true" shows all.
inline Q_LOGGING_CATEGORY(TimingLog, "tickwell.timing", QtWarningMsg)

}  // namespace tickwell::timing
