// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::sync {

/// Warnings by default; QT_LOGGING_RULES="tickwell.sync.debug=true" shows all.
inline Q_LOGGING_CATEGORY(SyncLog, "tickwell.sync", QtWarningMsg)

}  // namespace tickwell::sync
