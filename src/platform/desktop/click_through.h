// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWindow;

namespace tickwell::platform {

/// Sets whether mouse events pass through a window to what is below it. The window keeps its position and its
/// id. To be called once the native window exists, and again after each resize once clicks have passed
/// through.
void PassClicks(QWindow& window, bool passes);

}  // namespace tickwell::platform
