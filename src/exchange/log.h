// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::exchange {

/// Warnings by default; QT_LOGGING_RULES="tickwell.exchange.debug=true" shows all.
inline Q_LOGGING_CATEGORY(ExchangeLog, "tickwell.exchange", QtWarningMsg)

}  // namespace tickwell::exchange
