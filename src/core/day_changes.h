// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Notified of changes to what the main window announces: anniversaries, or the date style.
class DayChanges {
public:
    virtual ~DayChanges() = default;

    /// Has today's names and the date text looked up again at the clock's next tick.
    virtual void RaiseRefresh() = 0;
};

}  // namespace tickwell
