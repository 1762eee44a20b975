// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// The clocks of this process stand still but for what is let pass here, in milliseconds. What the toolkit
/// does by time of its own (a button that goes on while it is held, a tool tip, a caret that blinks) then
/// comes at the same moment in every run.
void PassOnStillClock(qint64 milliseconds);

}  // namespace tickwell
