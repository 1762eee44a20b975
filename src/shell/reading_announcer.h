// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/throttle.h"

namespace tickwell::shell {

/// Decides when the two lines are announced to a screen reader: changes at most once every five seconds, and
/// at once on request of the user.
class ReadingAnnouncer {
public:
    struct Parts {
        std::function<bool()> isHeard;  ///< whether a screen reader is running and the window has the focus
        std::function<QString()> read;  ///< the current texts of both lines
        std::function<void(const QString& text)> say;
    };

    /// Clock and source outlive this object.
    ReadingAnnouncer(Parts parts, const Clock& clock, TimerSource& timers);

    /// A line has changed. Starts no timer unless isHeard().
    void LineChanged();

    /// The user requests the lines: the window got the focus, or a key was pressed.
    void Ask();

private:
    void Announce();

    Parts m_parts;
    Throttle m_pace;
    QString m_said;
    bool m_isAsked = false;
};

}  // namespace tickwell::shell
