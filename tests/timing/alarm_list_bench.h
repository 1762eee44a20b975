// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QTimeZone>

#include "timing/alarm_list.h"
#include "timing/hand_time.h"
#include "timing/kept_alarms.h"

namespace tickwell::timing {

// ms
inline constexpr qint64 kMinute = 60'000;
inline constexpr qint64 kHour = 60 * kMinute;
inline constexpr qint64 kDay = 24 * kHour;

/// Alarms whose time, zone, days off and store the test controls. It is Sunday, 15 November 1998, 21:05:07 in
/// Tokyo.
struct AlarmBench {
    HandTime time;
    KeptAlarmsInMemory store;
    QTimeZone zone{"Asia/Tokyo"};
    QSet<QDate> off;
    bool daysFail = false;
    AlarmList list{time, store, Local()};

    AlarmBench() { time.since = 307'000; }

    LocalDays Local() {
        return {.offset =
                    [this](qint64 utc) {
                        return zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(utc, QTimeZone::utc()));
                    },
                .isOff = [this](QDate day) -> bool {
                    if (daysFail) {
                        throw RunTimeError(QStringLiteral("locked"));
                    }
                    return off.contains(day);
                }};
    }

    /// Both clocks advance.
    void Pass(qint64 milliseconds) {
        time.since += milliseconds;
        time.now = time.now.addMSecs(milliseconds);
    }

    /// Time passes until the local clock shows this moment, which is later.
    void PassUntil(const QString& local) { Pass(time.now.msecsTo(At(local))); }

    /// The clock is set, and no time passes.
    void SetClock(const QString& local) { time.now = At(local); }

    QDateTime At(const QString& local) const {
        const QDateTime moment = QDateTime::fromString(local, Qt::ISODate);
        return QDateTime(moment.date(), moment.time(), zone);
    }

    /// The local time at which an alarm rings next; "never" if it does not.
    QString Next(qint64 id) const {
        const auto next = list.NextOf(*list.Find(id));
        return next ? QDateTime::fromMSecsSinceEpoch(next->at, zone).toString(QStringLiteral("M/d H:mm"))
                    : QStringLiteral("never");
    }

    /// Ends the program and starts it again on a machine that has just booted.
    AlarmList Restarted(qint64 away) {
        Pass(away);
        time.since = 40'000;
        AlarmList next(time, store, Local());
        next.Load();
        return next;
    }
};

inline KeptAlarm AlarmAt(int hour, int minute, AlarmDays days = AlarmDays::Every) {
    return {.name = QStringLiteral("起床"),
            .time = QTime(hour, minute),
            .days = days,
            .sound = QStringLiteral("TKW01.wav"),
            .ringSeconds = 60,
            .snoozeMinutes = 5};
}

/// What is told: the name, and the minutes since then, negative if it is too late to ring.
inline QStringList Told(const DueAlarms& due) {
    QStringList told;
    for (const AlarmCall& call : due.calls) {
        told.append(call.name + QString::number((call.rings ? 1 : -1) * (call.ago / kMinute)));
    }
    return told;
}

}  // namespace tickwell::timing
