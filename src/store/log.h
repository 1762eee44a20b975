// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::store {

/// Warnings by default; QT_LOGGING_RULES="tickwell.store.debug=true" shows all.
inline Q_LOGGING_CATEGORY(StoreLog, "tickwell.store", QtWarningMsg)

}  // namespace tickwell::store
