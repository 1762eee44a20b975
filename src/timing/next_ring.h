// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "core/kept_alarm.h"

namespace tickwell::timing {

/// What the rule of alarms asks for.
struct LocalDays {
    /// The offset of local time from UTC in seconds at a moment, in ms since 1970 in UTC.
    std::function<int(qint64 utc)> offset;
    std::function<bool(QDate day)> isOff;  ///< whether a day is off for the user; may throw RunTimeError
};

/// The local date at a moment, in ms since 1970 in UTC.
QDate LocalDate(qint64 utc, const LocalDays& local);

/// The moment at which it is `time` on `day`, in ms since 1970 in UTC: the first one if a clock that is put
/// back shows it twice, and the end of the skipped time if a clock that is put forward does not show it.
qint64 LocalMoment(QDate day, QTime time, const std::function<int(qint64 utc)>& offset);

/// A ring of an alarm.
struct Ring {
    qint64 at = 0;  ///< ms since 1970 in UTC
    QDate day;      ///< the day that it belongs to; if its hour is skipped, it can ring on the next one

    bool operator==(const Ring&) const = default;
};

/// The first ring of an alarm after the moment `after`, in ms since 1970 in UTC. Nothing if there is none
/// within two years. Whether the alarm is on makes no difference.
std::optional<Ring> NextRingOf(const KeptAlarm& alarm, qint64 after, const LocalDays& local);

/// The moment of that ring.
std::optional<qint64> NextRing(const KeptAlarm& alarm, qint64 after, const LocalDays& local);

}  // namespace tickwell::timing
