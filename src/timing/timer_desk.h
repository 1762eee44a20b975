// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/ports/message_boxes.h"
#include "core/sleeping_timer.h"
#include "timing/timers_notice.h"
#include "timing/timers_window.h"

namespace tickwell::timing {

/// What the timers use; all outlive them.
struct TimerDeskParts {
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    HelpViewer& help;
    TimerStore& store;
    MainCountdown& countdown;
    TimerSounds sounds;
    std::function<bool()> isSilent;              ///< whether an end has no sound now
    std::function<bool()> isStored;              ///< whether the store has anything to load
    std::function<bool()> isMenuOpen;            ///< no window may be opened then
    std::function<void(QWidget& window)> place;  ///< positions a window before it is shown
    std::function<void()> loaded = [] {};        ///< called after the start, once the stored timers are read
};

/// All timers of the list: their times, sounds and windows, which are created on first use.
class TimerDesk {
public:
    /// The stored timers are read a second later; until then, and if there are none, nothing is done.
    explicit TimerDesk(const TimerDeskParts& parts);
    ~TimerDesk();
    TimerDesk(const TimerDesk&) = delete;
    TimerDesk& operator=(const TimerDesk&) = delete;

    /// Shows the window of all timers. Throws RunTimeError if the timers cannot be read.
    void Show();

    /// To be called when the clock was set or the machine has slept.
    void TimeJumped();

    const TimerList& List() const { return m_list; }

private:
    void Load();
    void Tick();
    qint64 UntilDue() const;
    void Follow();
    void Tell(const QList<TimerEnd>& ends);
    void Place(QWidget& window) const;

    TimerDeskParts m_parts;
    TimerList m_list;
    TimersPanel m_panel;
    SleepingTimer m_timer;  // runs while a timer of the list does
    std::unique_ptr<Timer> m_start;
    bool m_isLoaded = false;
    std::unique_ptr<TimersForm> m_form;  // null until first used
    std::unique_ptr<TimersNotice> m_notice;
};

}  // namespace tickwell::timing
