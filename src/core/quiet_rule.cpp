// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/quiet_rule.h"

#include <algorithm>

namespace tickwell {

namespace {

constexpr int kMinutesOfDay = 24 * 60;
constexpr int kMinutesOfHour = 60;

int MinuteOf(qint32 stored) {
    return std::clamp(stored, 0, kMinutesOfDay - 1);
}

}  // namespace

bool IsQuietHour(const QuietSettings& settings, QTime time) {
    if (!settings.hasHours) {
        return false;
    }
    const int from = MinuteOf(settings.from);
    const int to = MinuteOf(settings.to);
    const int minute = time.hour() * kMinutesOfHour + time.minute();
    return from < to ? from <= minute && minute < to : from <= minute || minute < to;
}

/// What the desktop has not told is not quiet: a strike too many is better than one that is missed.
bool QuietRule::IsQuiet() const {
    return IsQuietHour(m_settings, m_clock.Now().time()) ||
           (m_settings.followsDesktop && m_desktop.IsOn().value_or(false));
}

}  // namespace tickwell
