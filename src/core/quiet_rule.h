// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTime>

#include "core/ports/clock.h"
#include "core/ports/do_not_disturb.h"
#include "core/quiet_settings.h"

namespace tickwell {

/// Whether a time of day is in the quiet hours: from the beginning of their first minute to that of the first
/// one after them. Equal times mean the whole day. False if there are none.
bool IsQuietHour(const QuietSettings& settings, QTime time);

/// Whether sounds are left out now.
class QuietRule {
public:
    /// All outlive this object; the settings are read with each question.
    QuietRule(const QuietSettings& settings, const Clock& clock, DoNotDisturb& desktop)
        : m_settings(settings), m_clock(clock), m_desktop(desktop) {}

    bool SilencesChime() const { return m_settings.silencesChime && IsQuiet(); }
    bool SilencesTimer() const { return m_settings.silencesTimer && IsQuiet(); }

    /// To be called at the start and after the settings have changed: watches the desktop if they say so.
    void Follow() { m_desktop.Watch(m_settings.followsDesktop); }

private:
    bool IsQuiet() const;

    const QuietSettings& m_settings;
    const Clock& m_clock;
    DoNotDisturb& m_desktop;
};

}  // namespace tickwell
