// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/windows.h"
#include "media/multimedia.h"
#include "store/tools_database.h"
#include "timing/timer_desk.h"

namespace tickwell::app {

/// What the timers of the list work with; all outlive them.
struct TimersParts {
    ProgramFolder folder;
    media::Multimedia& media;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    timing::MainCountdown& countdown;
    Windows& windows;
    std::function<bool()> isSilent;  ///< whether an end has no sound now
};

/// Connects the timers of the list with their file, their sounds and the other windows.
class Timers {
public:
    explicit Timers(const TimersParts& parts);

    timing::TimerDesk& Desk() { return m_desk; }

private:
    timing::TimerSounds Sounds();
    void Play(const QString& file);
    void Stop();

    TimersParts m_parts;
    bool m_isSounding = false;
    store::ToolsDatabase m_store;
    timing::TimerDesk m_desk;
};

/// Checks the wave file of a timer. Throws RunTimeError if it cannot be played or is longer than half a
/// minute.
void CheckTimerSound(const QString& path);

}  // namespace tickwell::app
