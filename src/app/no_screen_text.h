// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::app {

/// Where the program looked for a screen.
struct MissingScreen {
    QString platforms;       ///< Qt's platforms that were chosen, "xcb" by default
    QString display;         ///< the X display; empty if none is named
    bool isWayland = false;  ///< whether this is a Wayland session
};

/// One sentence, why the clock cannot be shown and what to do about it.
QString NoScreenText(const MissingScreen& missing, bool inJapanese);

}  // namespace tickwell::app
