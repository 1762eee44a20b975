// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "core/handlers.h"

namespace tickwell {

/// Opens a colour picker over `parent` with a stored colour to begin with, and returns at once. `onPicked` is
/// given the chosen colour as it is stored; a picker that is cancelled says nothing.
void OpenColourPicker(Handlers& handlers, const QString& title, qint32 color, QWidget* parent,
                      std::function<void(qint32 color)> onPicked);

}  // namespace tickwell
