// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/kept_timer.h"

namespace tickwell::timing {

/// The countdown of the main window as a row of the list.
class MainCountdown {
public:
    virtual ~MainCountdown() = default;

    virtual TimerPhase Phase() const = 0;
    /// ms, 0 or more. Throws OverflowError.
    virtual qint64 Remaining() const = 0;
    /// Starts, continues or stops it, as the button of its window does. Throws OverflowError.
    virtual void StartOrStop() = 0;
    /// Only while it is not running. Throws OverflowError.
    virtual void Reset() = 0;
};

}  // namespace tickwell::timing
