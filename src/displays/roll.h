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

/// The display that the roll shows after `current`: the next chosen one of those that take part, in their
/// order, round and round, without those that are skipped on mains while the machine runs on mains. Nothing
/// if the roll is off, if `current` is not chosen, or if there is no other one to show.
std::optional<qint32> NextInRoll(const Displays& displays, const RollSettings& roll, qint32 current,
                                 Mains mains);

/// Milliseconds that each display is shown: the stored seconds, held within 1 to 3600.
int RollIntervalOf(const RollSettings& roll);

/// Shows the chosen displays in turn. It has a timer only while there is something to roll, so that a roll
/// that is off, or that waits behind the stopwatch, wakes nobody.
class Roll {
public:
    /// `change` switches the display, and tells this object of it through FunctionChanged. All outlive it.
    Roll(const Displays& displays, const RollSettings& settings, const Power& power, Handlers& handlers,
         TimerSource& timers, std::function<void(qint32 number)> change);

    /// The display or the settings have changed: its time begins anew, or the roll rests.
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
    PowerQuestion m_question;  // at most until the display changes
};

}  // namespace tickwell::displays
