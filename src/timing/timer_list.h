// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/timer_store.h"

namespace tickwell::timing {

/// A timer that has reached zero.
struct TimerEnd {
    qint64 id = 0;
    QString name;
    qint64 ago = 0;  ///< ms since then, 0 or more
    QString sound;

    bool operator==(const TimerEnd&) const = default;
};

/// What became due.
struct DueTimers {
    QList<TimerEnd> ends;  ///< the earliest first
    QString failure;       ///< why the new state could not be stored, for the user; empty if it was
};

/// The timers of the list. While the program runs, ends are counted in time since boot, so that setting the
/// clock changes nothing; for the time in which it does not run they are stored as times in UTC.
class TimerList {
public:
    /// Both outlive this object.
    TimerList(const Clock& clock, TimerStore& store) : m_clock(clock), m_store(store) {}

    /// Reads the stored timers and presets. Those that ended meanwhile are due. Throws RunTimeError.
    void Load();

    struct Row {
        KeptTimer kept;
        qint64 endsAt = 0;   ///< ms since boot; only if it is running
        qint64 againAt = 0;  ///< ms since boot; only if kept.againAt is not 0
    };
    const std::vector<Row>& Rows() const { return m_rows; }
    const QList<TimerPreset>& Presets() const { return m_presets; }

    /// Null if there is none.
    const Row* Find(qint64 id) const;
    /// ms; what was set if the timer is not under way, 0 if it has ended.
    qint64 Remaining(const Row& row) const;
    /// Whether its start begins from the beginning.
    static bool IsFree(const Row& row);

    // What the user does. Each is stored before it is done, and throws RunTimeError. An id that is gone, and
    // a state in which the action has no meaning, change nothing.

    /// Returns the new timer's id. Throws if there are already kMostTimers.
    qint64 Add(const TimerPlan& plan);
    void Start(qint64 id);
    void Pause(qint64 id);
    void Reset(qint64 id);
    void Remove(qint64 id);
    /// The timers' ends are told again after `milliseconds`.
    void TellAgain(const QList<qint64>& ids, qint64 milliseconds);
    void AddPreset(const TimerPlan& plan);
    void RemovePreset(qint64 preset);

    /// The ends that are due; each is returned once, also by later runs of the program. Of a chain, the ends
    /// that have passed together count as one, the last.
    DueTimers TakeDue();

    /// Milliseconds until something is due, 0 or less if it is; nothing if no timer runs.
    std::optional<qint64> UntilDue() const;

    /// To be called when the clock may have been set: the stored ends follow it. Returns why they could not
    /// be stored; empty if they were.
    QString FollowClock();

private:
    Row* Change(qint64 id);
    void Store(const QList<KeptTimer>& changed);
    void Take(const KeptTimer& kept);
    qint64 BootTimeOf(qint64 utc, qint64 longest) const;
    qint64 UtcNow() const { return m_clock.Now().toMSecsSinceEpoch(); }
    std::optional<TimerEnd> PassedEnd(Row& row) const;

    const Clock& m_clock;
    TimerStore& m_store;
    std::vector<Row> m_rows;
    QList<TimerPreset> m_presets;
};

}  // namespace tickwell::timing
