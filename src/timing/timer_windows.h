// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::timing {

/// The windows that the countdown opens automatically. None of these functions waits for the user.
class TimerWindows {
public:
    virtual ~TimerWindows() = default;

    /// The window that sets and starts the countdown.
    virtual void ShowTimerForm() = 0;

    /// Updates that window to the state, if it is open.
    virtual void RefreshTimerForm() = 0;

    /// Shows the notice that the countdown has reached zero. Does nothing while it is open.
    virtual void ShowNotice() = 0;
};

}  // namespace tickwell::timing
