// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringList>

#include "timing/main_countdown.h"
#include "timing/shown_row.h"
#include "timing/timer_list.h"

namespace tickwell::timing {

/// The id of the row of the main window's countdown.
inline constexpr qint64 kMainRow = 0;

/// What can be done with a row.
struct TimerActions {
    bool starts = false;
    bool pauses = false;
    bool resets = false;
    bool removes = false;
};

/// The logic of the window of all timers: its rows and what its buttons do. The first row is the main
/// window's countdown.
class TimersPanel {
public:
    /// All outlive this object.
    TimersPanel(TimerList& list, MainCountdown& countdown, const Clock& clock)
        : m_list(list), m_countdown(countdown), m_clock(clock) {}

    /// With name, remaining time, time at which it ends, and state.
    QList<ShownRow> Rows() const;
    TimerActions ActionsOf(qint64 id) const;
    bool HasRoom() const { return m_list.Rows().size() < static_cast<std::size_t>(kMostTimers); }
    const QList<TimerPreset>& Presets() const { return m_list.Presets(); }

    // All throw RunTimeError; nothing has changed then.

    void Start(qint64 id);
    void Pause(qint64 id);
    void Reset(qint64 id);
    void Remove(qint64 id);
    /// Adds a timer that waits for its start; returns its id. A plan without a name gets one. Throws
    /// RunTimeError if its time is zero.
    qint64 Add(TimerPlan plan);
    /// Starts a timer of this preset: one that is in the list and not under way, or else a new one. Returns
    /// its id.
    qint64 StartPreset(const TimerPreset& preset);
    void AddPreset(TimerPlan plan);
    void RemovePreset(qint64 preset) { m_list.RemovePreset(preset); }

private:
    ShownRow Shown(const TimerList::Row& row) const;
    QString EndOf(bool isRunning, qint64 remaining) const;
    TimerPlan Checked(TimerPlan plan) const;

    TimerList& m_list;
    MainCountdown& m_countdown;
    const Clock& m_clock;
};

}  // namespace tickwell::timing
