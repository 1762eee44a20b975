// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/bring_forward.h"

namespace tickwell::controls {

void BringForward(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace tickwell::controls
