// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "timing/hand_time.h"
#include "timing/kept_timers.h"
#include "timing/timer_list.h"

namespace tickwell::timing {

inline constexpr qint64 kMinute = 60'000;  ///< ms

inline const TimerPlan kTea{
    .name = QStringLiteral("紅茶"), .milliseconds = 4 * kMinute, .sound = QStringLiteral("TKW01.wav")};
inline const TimerPlan kWork{.name = QStringLiteral("集中"),
                             .milliseconds = 25 * kMinute,
                             .nextName = QStringLiteral("休憩"),
                             .nextMilliseconds = 5 * kMinute,
                             .sound = QStringLiteral("TKW00.wav")};

/// A list of timers whose time and store the test controls.
struct Bench {
    HandTime time;
    KeptTimersInMemory store;
    TimerList list{time, store};

    Bench() { time.since = 307'000; }

    /// Both clocks advance.
    void Pass(qint64 milliseconds) {
        time.since += milliseconds;
        time.now = time.now.addMSecs(milliseconds);
    }

    /// Ends the program and starts it again on a machine that has just booted.
    TimerList Restarted(qint64 away) {
        Pass(away);
        time.since = 40'000;
        TimerList next(time, store);
        next.Load();
        return next;
    }

    TimerPhase Phase(qint64 id) const { return list.Find(id)->kept.phase; }
    qint64 Remaining(qint64 id) const { return list.Remaining(*list.Find(id)); }
};

inline QStringList Names(const DueTimers& due) {
    QStringList names;
    for (const TimerEnd& end : due.ends) {
        names.append(end.name);
    }
    return names;
}

}  // namespace tickwell::timing
