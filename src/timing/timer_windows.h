// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// The windows that the countdown brings up by itself. None of these waits for the user.
class TimerWindows {
public:
    virtual ~TimerWindows() = default;

    /// The window that sets and starts the countdown.
    virtual void ShowTimerForm() = 0;

    /// Lets that window, where it is open, follow the state.
    virtual void RefreshTimerForm() = 0;

    /// The notice that the time is over. While it is open a further one does nothing.
    virtual void ShowNotice() = 0;
};

}  // namespace tickwell
