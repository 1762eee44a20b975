// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "xwatch/screen.h"

namespace tickwell {

/// The smallest window that counts as the program's, in pixels.
struct SmallestWindow {
    unsigned width = 0;
    unsigned height = 0;
};

/// Prints when the first window appears and when it is painted; gives up at `end`. Returns whether both
/// happened.
bool WatchStart(Screen& screen, SmallestWindow smallest, TimePoint end);

/// Prints how often, and how much of, the screen is repainted during `duration`. Returns false if the display
/// cannot report it.
bool WatchDamage(Screen& screen, std::chrono::milliseconds duration);

}  // namespace tickwell
