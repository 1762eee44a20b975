// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "core/ports/alarm_store.h"
#include "core/ports/clock.h"
#include "timing/next_ring.h"

namespace tickwell::timing {

/// An alarm that is to be told.
struct AlarmCall {
    qint64 id = 0;
    QString name{};
    qint64 at = 0;      ///< ms since 1970 in UTC, the time of the alarm; also if it rings again
    qint64 ago = 0;     ///< ms since it should have rung, 0 or more
    bool rings = true;  ///< false if it is too late for that
    QString sound{};
    int ringSeconds = 0;
    int snoozeMinutes = 0;

    bool operator==(const AlarmCall&) const = default;
};

/// What became due.
struct DueAlarms {
    QList<AlarmCall> calls;  ///< the earliest first
    QString failure;         ///< why the new state could not be stored, for the user; empty if it was
};

/// The alarms: when each rings, and which rings were handled. An alarm is a local time; its snooze is counted
/// in time since boot while the program runs.
class AlarmList {
public:
    /// A ring that is later than this is told without a sound, in ms.
    static constexpr qint64 kTooLate = 600'000;

    /// Clock and store outlive this object. If `local.isOff` throws, the day counts as one that is not off.
    AlarmList(const Clock& clock, AlarmStore& store, LocalDays local);

    /// Reads the stored alarms. Those that were missed meanwhile are due. Throws RunTimeError.
    void Load();

    struct Row {
        KeptAlarm kept;
        qint64 againAt = 0;  ///< ms since boot; only if kept.againAt is not 0
    };
    const std::vector<Row>& Rows() const { return m_rows; }

    /// Null if there is none.
    const Row* Find(qint64 id) const;

    /// The next ring, without the snooze; nothing if it is off or there is none within two years.
    std::optional<Ring> NextOf(const Row& row) const;
    /// Whether 「次の1回だけ鳴らさない」 is chosen, and that time has not passed.
    bool IsNextSkipped(const Row& row) const;
    const LocalDays& Local() const { return m_local; }

    // What the user does. Each is stored before it is done, and throws RunTimeError. An id that is gone
    // changes nothing.

    /// Adds an alarm as it is set: id, skipped, handled and againAt are ignored. Returns its id. Throws if
    /// there are already kMostAlarms.
    qint64 Add(const KeptAlarm& alarm);
    /// Sets an alarm to these values and switches it on. It no longer rings again, and nothing is skipped.
    void Change(qint64 id, const KeptAlarm& alarm);
    /// What would have rung while it was off is not made up.
    void SetOn(qint64 id, bool isOn);
    /// 「次の1回だけ鳴らさない」, for the next ring of now.
    void SkipNext(qint64 id, bool skips);
    void Remove(qint64 id);
    /// Each rings again after its own minutes.
    void Snooze(const QList<qint64>& ids);

    /// What is due; each ring is returned once, also by later runs of the program. Of several rings of an
    /// alarm that have passed together, the last one counts.
    DueAlarms TakeDue();

    /// Milliseconds until TakeDue has something to do, 0 or less if it has; nothing if no alarm is on. On a
    /// day off that is the time of the alarm too: until then the day can become a working day.
    std::optional<qint64> UntilDue() const;

    /// To be called when the clock may have been set. Returns why the new state could not be stored; empty if
    /// it was.
    QString FollowClock();

private:
    Row* ToChange(qint64 id);
    void StoreAlarms(const QList<KeptAlarm>& changed);
    void Update(const KeptAlarm& kept);
    Row Taken(const KeptAlarm& kept) const;
    KeptAlarm AsSet(const KeptAlarm& alarm, qint64 id) const;
    qint64 AlarmNow() const { return m_clock.Now().toMSecsSinceEpoch(); }
    qint64 HandledUntil(const KeptAlarm& kept) const;
    std::optional<Ring> NextFromNow(const KeptAlarm& kept) const;
    std::optional<Ring> NextTimeOfDay(const KeptAlarm& kept) const;
    std::optional<Ring> Passed(KeptAlarm& kept) const;
    std::optional<AlarmCall> CallOf(Row& row) const;

    const Clock& m_clock;
    AlarmStore& m_store;
    LocalDays m_local;     // with errors handled
    LocalDays m_everyDay;  // the same without days off
    std::vector<Row> m_rows;
};

}  // namespace tickwell::timing
