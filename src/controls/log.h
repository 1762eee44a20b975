// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace tickwell::controls {

/// Warnings by default; QT_LOGGING_RULES="tickwell.controls.debug=true" shows all.
inline Q_LOGGING_CATEGORY(ControlsLog, "tickwell.controls", QtWarningMsg)

}  // namespace tickwell::controls
