// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/ports/clock.h"
#include "core/settings.h"
#include "core/text_line.h"

namespace tickwell::displays {

/// What the usage time works with; all outlive it.
struct UsageParts {
    const AppSettings& settings;
    const FurtherSettings& further;
    const Clock& clock;
};

/// The time since the system started, on the lower line. It is the 32-bit tick count, which becomes negative
/// after 24.8 days, unless the settings select the complete count.
class UsageLines {
public:
    UsageLines(const UsageParts& parts, TextLines lines) : m_parts(parts), m_lines(lines) {}

    /// Called when the function is chosen: wipes in the reading.
    void Show();

    /// Win_Timer: updates the reading only if its rounded number of seconds has changed.
    void Tick();

    /// Milliseconds until the next tick that shows something new.
    qint64 UntilDue() const;

private:
    qint64 Count() const;
    qint64 UntilTurn(qint64 count) const;
    QString Reading(qint64 count) const;

    UsageParts m_parts;
    TextLines m_lines;
    std::optional<qint64> m_shownSecond;
};

}  // namespace tickwell::displays
