// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "timing/alarm_notice.h"
#include "timing/alarm_sound.h"
#include "timing/alarms_window.h"

namespace tickwell::timing {

/// What the alarms use; all outlive them.
struct AlarmDeskParts {
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    HelpViewer& help;
    AlarmStore& store;
    TimerSounds sounds;
    LocalDays local;                             ///< isOff: the days of 「休みの日は鳴らさない」
    std::function<bool()> isSilent;              ///< whether an alarm has no sound now
    std::function<bool()> isStored;              ///< whether the store has anything to load
    std::function<bool()> isMenuOpen;            ///< no window may be opened then
    std::function<void(QWidget& window)> place;  ///< positions a window before it is shown
};

/// The alarms: their times, sounds and windows, which are created on first use. Nothing runs if none is on.
class AlarmDesk {
public:
    explicit AlarmDesk(const AlarmDeskParts& parts);
    ~AlarmDesk();
    AlarmDesk(const AlarmDesk&) = delete;
    AlarmDesk& operator=(const AlarmDesk&) = delete;

    /// Reads the stored alarms, once. Those that were missed are told. Throws RunTimeError.
    void Load();

    /// Shows the window of the alarms. Throws RunTimeError if they cannot be read.
    void Show();

    /// To be called when the clock was set, the zone has changed, or the machine has slept.
    void TimeJumped();

    const AlarmList& List() const { return m_list; }

private:
    void Tick();
    void Follow(int soonest);
    void Tell(const QList<AlarmCall>& calls);
    void Place(QWidget& window) const;

    AlarmDeskParts m_parts;
    AlarmList m_list;
    AlarmsPanel m_panel;
    AlarmSound m_sound;
    std::unique_ptr<Timer> m_timer;  // runs while an alarm will ring
    bool m_isLoaded = false;
    std::unique_ptr<AlarmsForm> m_form;  // null until first used
    std::unique_ptr<AlarmNotice> m_notice;
};

}  // namespace tickwell::timing
