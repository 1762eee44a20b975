// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::book {

/// Warnings by default; QT_LOGGING_RULES="tickwell.book.debug=true" shows all.
inline Q_LOGGING_CATEGORY(BookLog, "tickwell.book", QtWarningMsg)

}  // namespace tickwell::book
