// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings.h"
#include "lines/moving_word.h"

namespace tickwell::lines {

/// Gives both lines their fonts, colours and wipes, in the main window and in the sample of the settings. A
/// wipe that runs goes on. Throws OverflowError.
void ApplyLineStyles(MovingWord& upper, MovingWord& lower, const AppSettings& settings);

}  // namespace tickwell::lines
