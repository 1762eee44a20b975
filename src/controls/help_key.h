// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"

namespace tickwell::controls {

/// F1 in this window shows the help at a topic, under `handlers`. Handlers and help outlive the window.
/// Windows opened from it need this call for themselves.
void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, int topic);

/// The same, but `topic` is evaluated when the key is pressed.
void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, std::function<int()> topic);

}  // namespace tickwell::controls
