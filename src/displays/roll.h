// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/display.h"
#include "core/handlers.h"
#include "core/ports/power.h"
#include "core/ports/timer.h"
#include "core/settings.h"

namespace tickwell::displays {

/// The display that the roll shows after `current`: cyclically the next chosen one of those that take part.
/// On mains power it passes over those that are skipped then. nullopt if the roll is off, if `current` is not
/// chosen, or if there is no other display to show.
std::optional<qint32> NextInRoll(const Displays& displays, const RollSettings& roll, qint32 current,
                                 Mains mains);

/// Milliseconds that each display is shown: the stored seconds, clamped to 1..3600.
int RollIntervalOf(const RollSettings& roll);

/// Shows the chosen displays in turn. The timer runs only while there is another display to show: a roll that
/// is off, or interrupted by a display that is not chosen, causes no wake-ups.
class Roll {
public:
    /// `change` switches the display and then calls FunctionChanged. All outlive this object.
    Roll(const Displays& displays, const RollSettings& settings, const Power& power, Handlers& handlers,
         TimerSource& timers, std::function<void(qint32 number)> change);

    /// The display or the settings have changed: restarts the interval, or stops the timer.
    void FunctionChanged(qint32 number);

private:
    void Tick();
    void ShowNext(Mains mains);

    const Displays& m_displays;
    const RollSettings& m_settings;
    const Power& m_power;
    Handlers& m_handlers;
    std::function<void(qint32)> m_change;
    qint32 m_current = -1;
    std::unique_ptr<Timer> m_timer;
    PowerQuestion m_question;  // pending at most until the display changes
};

}  // namespace tickwell::displays
