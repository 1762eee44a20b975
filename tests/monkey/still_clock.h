// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Advances the clocks of this process, which are otherwise stopped, by this many milliseconds. Qt's own
/// timing (auto-repeating buttons, tool tips, a blinking caret) then happens at the same moments in every
/// run.
void PassOnStillClock(qint64 milliseconds);

}  // namespace tickwell
