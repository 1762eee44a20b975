// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::app {

/// Warnings by default; QT_LOGGING_RULES="tickwell.app.debug=true" shows all.
inline Q_LOGGING_CATEGORY(AppLog, "tickwell.app", QtWarningMsg)

}  // namespace tickwell::app
