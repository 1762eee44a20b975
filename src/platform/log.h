// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::platform {

/// Warnings by default; QT_LOGGING_RULES="tickwell.platform.debug=true" shows all.
inline Q_LOGGING_CATEGORY(PlatformLog, "tickwell.platform", QtWarningMsg)

}  // namespace tickwell::platform
