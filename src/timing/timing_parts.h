// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/printer.h"
#include "core/settings.h"
#include "timing/countdown_lines.h"
#include "timing/stopwatch_lines.h"

namespace tickwell::timing {

/// What stopwatch and countdown use; all outlive them.
struct TimingParts {
    StopwatchState& stopwatch;
    CountdownState& countdown;
    const FurtherSettings& further;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    Printer& printer;
    HelpViewer& help;
    std::function<void()>
        enterFolder;  ///< makes the program's folder the current one, or throws RunTimeError
    /// Sends one multimedia command and reports a failure to the user.
    std::function<void(const QString& command)> sendCommand;
    std::function<bool()> isSilent = [] { return false; };  ///< whether the countdown's notice is silent now
    std::function<void(QWidget& window)> place;             ///< positions a window that is about to be shown
    QString version;                                        ///< of the program, like "2.0.0"
    /// Called when the countdown's notice was opened for a run with this name, and when it was closed.
    std::function<void(const QString& name)> noticeOpened = [](const QString&) {};
    std::function<void()> noticeClosed = [] {};
    std::function<void()> openTimers = [] {};  ///< opens the window of all timers
    std::function<void()> openAlarms = [] {};  ///< opens the window of the alarms
    std::function<void()> timeJumped = [] {};  ///< called when the clock may have been set
};

}  // namespace tickwell::timing
