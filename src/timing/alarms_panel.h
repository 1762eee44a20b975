// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "timing/alarm_list.h"
#include "timing/shown_row.h"

namespace tickwell::timing {

/// The state of a row's check boxes and what can be done with it.
struct AlarmActions {
    bool exists = false;
    bool isOn = false;
    bool isSkipped = false;  ///< 「次の1回だけ鳴らさない」
    bool canSkip = false;
};

/// The logic of the window of the alarms: its rows, and what its buttons do.
class AlarmsPanel {
public:
    /// Both outlive this object.
    AlarmsPanel(AlarmList& list, const Clock& clock) : m_list(list), m_clock(clock) {}

    /// With name, time, days, when it rings next, and state.
    QList<ShownRow> Rows() const;
    AlarmActions ActionsOf(qint64 id) const;
    bool HasRoom() const { return m_list.Rows().size() < static_cast<std::size_t>(kMostAlarms); }
    /// The values that the window offers for a new alarm, without name and sound.
    KeptAlarm FirstEntry() const;
    /// The values of an alarm; those of FirstEntry if there is none with this id.
    KeptAlarm Entry(qint64 id) const;

    // All throw RunTimeError; nothing has changed then. An alarm without a name gets one.

    /// Adds an alarm as set in the window; returns its id. Throws RunTimeError if it would never ring.
    qint64 Add(const KeptAlarm& alarm);
    void Change(qint64 id, const KeptAlarm& alarm);
    void SetOn(qint64 id, bool isOn) { m_list.SetOn(id, isOn); }
    void SkipNext(qint64 id, bool skips) { m_list.SkipNext(id, skips); }
    void Remove(qint64 id) { m_list.Remove(id); }

private:
    ShownRow Shown(const AlarmList::Row& row) const;
    bool IsPast(const KeptAlarm& alarm) const;
    QString StateOf(const AlarmList::Row& row) const;
    KeptAlarm CheckedAlarm(KeptAlarm alarm) const;

    AlarmList& m_list;
    const Clock& m_clock;
};

}  // namespace tickwell::timing
