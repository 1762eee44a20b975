// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/throttle.h"

namespace tickwell::shell {

/// When the two lines are announced to a screen reader: by themselves at most once in five seconds and only
/// what is new, and at once if the user asks.
class ReadingAnnouncer {
public:
    struct Parts {
        std::function<bool()>
            isHeard;  ///< whether a screen reader is running and the main window has the focus
        std::function<QString()> read;  ///< both lines as they are now
        std::function<void(const QString& text)> say;
    };

    /// Clock and source outlive this object.
    ReadingAnnouncer(Parts parts, const Clock& clock, TimerSource& timers);

    /// A line has changed. Needs no timer unless it is heard.
    void LineChanged();

    /// The user asks for the lines: the window got the focus, or a key was pressed.
    void Ask();

private:
    void Announce();

    Parts m_parts;
    Throttle m_pace;
    QString m_said;
    bool m_isAsked = false;
};

}  // namespace tickwell::shell
