// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/windows.h"
#include "media/multimedia.h"
#include "store/tools_database.h"
#include "timing/alarm_desk.h"
#include "timing/timer_desk.h"

namespace tickwell::app {

/// What timers and alarms work with; all outlive them.
struct TimersParts {
    ProgramFolder folder;
    media::Multimedia& media;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    timing::MainCountdown& countdown;
    Windows& windows;
    std::function<bool()> isSilent;           ///< whether they have no sound now
    std::function<bool(QDate day)> isDayOff;  ///< whether a day is off for the user; throws RunTimeError
};

/// The sound of a tool: one at a time, played by the multimedia commands.
class ToolSound {
public:
    /// `alias`: the name under which it is opened. `media` and `handlers` outlive this object.
    ToolSound(ProgramFolder folder, media::Multimedia& media, Handlers& handlers, QString alias);

    /// These report their failures to the user.
    timing::TimerSounds Functions();

private:
    void Play(const QString& file);
    void Stop();
    qint64 LengthOf(const QString& file) const;

    ProgramFolder m_folder;
    media::Multimedia& m_media;
    Handlers& m_handlers;
    QString m_alias;
    bool m_isSounding = false;
};

/// Connects the timers of the list and the alarms with their file, their sounds and the other windows.
class Timers {
public:
    explicit Timers(const TimersParts& parts);

    timing::TimerDesk& Desk() { return m_desk; }
    timing::AlarmDesk& Alarms() { return m_alarms; }

    /// To be called when the clock was set, the zone has changed, or the machine has slept.
    void TimeJumped();

private:
    timing::TimerDeskParts PartsOfTimers();
    timing::AlarmDeskParts PartsOfAlarms();

    TimersParts m_parts;
    store::ToolsDatabase m_store;
    ToolSound m_timerSound;
    ToolSound m_alarmSound;
    timing::TimerDesk m_desk;
    timing::AlarmDesk m_alarms;
};

/// Checks the wave file of a timer. Throws RunTimeError if it cannot be played or is longer than half a
/// minute.
void CheckTimerSound(const QString& path);

}  // namespace tickwell::app
