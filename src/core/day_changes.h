// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Told by whoever changes what the main window announces: anniversaries, or the style of the date.
class DayChanges {
public:
    virtual ~DayChanges() = default;

    /// Today's names and the date text are looked up again with the next tick of the clock.
    virtual void RaiseRefresh() = 0;
};

}  // namespace tickwell
