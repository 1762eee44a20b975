// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"

namespace tickwell::controls {

/// F1 in this window shows the help at a topic, under `handlers`. Handlers and help outlive the window.
/// Windows that it opens need keys of their own.
void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, int topic);

/// The same with the topic that `topic` returns when the key is pressed.
void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, std::function<int()> topic);

}  // namespace tickwell::controls
