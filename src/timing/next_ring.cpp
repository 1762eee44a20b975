// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/next_ring.h"

#include <QDate>
#include <QTime>
#include <algorithm>

namespace tickwell::timing {

namespace {

constexpr qint64 kMsPerSecond = 1000;
constexpr qint64 kMsPerDay = 86'400'000;
constexpr qint64 kEpoch = 2'440'588;  // Julian day of 1 January 1970
constexpr int kDaysAhead = 732;

bool IsOnDay(const KeptAlarm& alarm, QDate day) {
    if (day == alarm.skipped) {
        return false;
    }
    switch (alarm.days) {
        case AlarmDays::Every:
            return true;
        case AlarmDays::Workdays:
            return day.dayOfWeek() < Qt::Saturday;
        case AlarmDays::Chosen:
            return ((alarm.weekdays >> (day.dayOfWeek() - 1)) & 1) != 0;
        case AlarmDays::Once:
            break;
    }
    return day == alarm.once;
}

}  // namespace

qint64 LocalMoment(QDate day, QTime time, const std::function<int(qint64 utc)>& offset) {
    const qint64 local = (day.toJulianDay() - kEpoch) * kMsPerDay + time.msecsSinceStartOfDay();
    // An offset is at most 14 hours, and changes less often than every two days.
    const qint64 before = kMsPerSecond * offset(local - kMsPerDay);
    const qint64 after = kMsPerSecond * offset(local + kMsPerDay);
    for (const qint64 assumed : {std::max(before, after), std::min(before, after)}) {
        if (kMsPerSecond * offset(local - assumed) == assumed) {
            return local - assumed;
        }
    }
    qint64 early = local - after;  // before the clock is put forward, and after that
    qint64 late = local - before;
    while (late - early > 1) {
        const qint64 middle = early + (late - early) / 2;
        (kMsPerSecond * offset(middle) == after ? late : early) = middle;
    }
    return late;
}

QDate LocalDate(qint64 utc, const LocalDays& local) {
    const qint64 shifted = utc + kMsPerSecond * local.offset(utc);
    const qint64 days = shifted / kMsPerDay - (shifted % kMsPerDay < 0 ? 1 : 0);
    return QDate::fromJulianDay(kEpoch + days);
}

std::optional<Ring> NextRingOf(const KeptAlarm& alarm, qint64 after, const LocalDays& local) {
    const QDate first = LocalDate(after, local).addDays(-1);
    for (int i = 0; i < kDaysAhead; ++i) {
        const QDate day = first.addDays(i);
        if (!IsOnDay(alarm, day)) {
            continue;
        }
        const qint64 moment = LocalMoment(day, alarm.time, local.offset);
        if (moment > after && !(alarm.silentOnDaysOff && local.isOff(day))) {
            return Ring{.at = moment, .day = day};
        }
    }
    return std::nullopt;
}

std::optional<qint64> NextRing(const KeptAlarm& alarm, qint64 after, const LocalDays& local) {
    const std::optional<Ring> ring = NextRingOf(alarm, after, local);
    return ring ? std::optional(ring->at) : std::nullopt;
}

}  // namespace tickwell::timing
