// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace tickwell {

/// The longest time of a timer: 23:59:59, in ms.
inline constexpr qint32 kLongestTimer = 86'399'000;

/// The most timers of the list; the countdown of the main window is not one of them.
inline constexpr int kMostTimers = 20;

/// The longest name of a timer or an alarm, in UTF-16 units.
inline constexpr int kLongestTimerName = 60;

/// What a timer is set to. A chain has a second time that follows the first, and then begins again.
struct TimerPlan {
    QString name{};
    qint32 milliseconds = 0;      ///< 1 to kLongestTimer
    QString nextName{};           ///< of the second time; empty if there is none
    qint32 nextMilliseconds = 0;  ///< 0: no chain
    QString sound{};              ///< a file of the program's folder, or the absolute path of a wave file

    bool IsChain() const { return nextMilliseconds > 0; }
    /// `stage`: 0 or 1, the second time of a chain.
    const QString& NameOf(int stage) const { return stage == 0 ? name : nextName; }
    qint32 LengthOf(int stage) const { return stage == 0 ? milliseconds : nextMilliseconds; }

    bool operator==(const TimerPlan&) const = default;
};

enum class TimerPhase { Idle, Running, Paused, Ended };

/// A timer as it is stored, so that it goes on after a restart.
struct KeptTimer {
    qint64 id = 0;  ///< 0: not stored yet
    TimerPlan plan;
    TimerPhase phase = TimerPhase::Idle;
    int stage = 0;
    qint64 endsAt = 0;     ///< ms since 1970 in UTC; only if it is running
    qint64 remaining = 0;  ///< ms; only if it is paused
    qint64 againAt = 0;    ///< ms since 1970 in UTC, when its end is told again; 0: not

    bool operator==(const KeptTimer&) const = default;
};

struct TimerPreset {
    qint64 id = 0;  ///< 0: not stored yet
    TimerPlan plan;

    bool operator==(const TimerPreset&) const = default;
};

struct KeptTimers {
    QList<KeptTimer> timers;
    QList<TimerPreset> presets;
};

}  // namespace tickwell
