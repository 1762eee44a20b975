// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings.h"
#include "lines/moving_word.h"

namespace tickwell::lines {

/// Sets the fonts, colours and wipes of both lines, in the main window and in the sample of the settings. A
/// running wipe continues. Throws OverflowError.
void ApplyLineStyles(MovingWord& upper, MovingWord& lower, const AppSettings& settings);

}  // namespace tickwell::lines
