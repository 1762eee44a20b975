// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// When sounds are left out, and how loud the others are; by default none is, and all are as loud as
/// recorded.
struct QuietSettings {
    bool hasHours = false;       ///< whether there are quiet hours
    qint32 from = 22 * 60;       ///< their first minute since midnight; clamped to 0..1439 when used
    qint32 to = 7 * 60;          ///< the first one after them, likewise; at or before `from`: on the next day
    bool silencesChime = true;   ///< what is left out while it is quiet
    bool silencesTimer = false;  ///< its notice is shown nevertheless
    bool followsDesktop = false;  ///< it is quiet as well while the desktop is asked not to disturb
    qint32 volume = 100;          ///< of time signal and timer, percent; clamped to 0..100 when used

    bool operator==(const QuietSettings&) const = default;
};

}  // namespace tickwell
