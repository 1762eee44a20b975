// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::media {

/// Warnings by default; QT_LOGGING_RULES="tickwell.media.debug=true" shows all.
inline Q_LOGGING_CATEGORY(MediaLog, "tickwell.media", QtWarningMsg)

}  // namespace tickwell::media
