// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWindow;

namespace tickwell::platform {

/// Lets the mouse reach what is below a window, or ends that. The window keeps its place and its id. To be
/// called once the window has been created, and repeated when it was resized after clicks have gone through.
void PassClicks(QWindow& window, bool passes);

}  // namespace tickwell::platform
