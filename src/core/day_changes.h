// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Notified of changes to what the main window announces: anniversaries, or the date style.
class DayChanges {
public:
    virtual ~DayChanges() = default;

    /// Makes the clock look up today's names and the date text again at its next tick.
    virtual void RaiseRefresh() = 0;
};

}  // namespace tickwell
