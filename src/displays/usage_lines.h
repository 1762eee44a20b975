// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/ports/clock.h"
#include "core/settings.h"
#include "core/text_line.h"

namespace tickwell::displays {

/// The time since the system started, on the lower line.
class UsageLines {
public:
    /// All outlive this object.
    UsageLines(const AppSettings& settings, const Clock& clock, TextLines lines);

    /// The function was chosen: wipes in the reading.
    void Show();

    /// Win_Timer: updates the reading only if its rounded number of seconds has changed.
    void Tick();

    /// Milliseconds until the next tick that shows something new.
    qint64 UntilDue() const;

private:
    QString Reading(qint32 tick) const;

    const AppSettings& m_settings;
    const Clock& m_clock;
    TextLines m_lines;
    std::optional<qint32> m_shownSecond;
};

}  // namespace tickwell::displays
