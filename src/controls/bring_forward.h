// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tickwell::controls {

/// Shows a window, even if it was minimized or covered, in front of the others and gives it the keyboard
/// focus.
void BringForward(QWidget& window);

}  // namespace tickwell::controls
