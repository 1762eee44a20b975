// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "core/handlers.h"

namespace tickwell::settings_ui {

/// Opens a colour picker over `parent`, starting with a stored colour, and returns at once. Calls `onPicked`
/// with the chosen colour in stored form, or not at all if the picker is cancelled.
void OpenColourPicker(Handlers& handlers, const QString& title, qint32 color, QWidget* parent,
                      std::function<void(qint32 color)> onPicked);

}  // namespace tickwell::settings_ui
