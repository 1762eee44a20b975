// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/line_output.h"
#include "app/options.h"

namespace tickwell::app {

// The commands that print days and end. They need no window, may run while the program does, and change no
// file: they take no part in the locks of folder and database, and a lock held by another process is an error
// within half a second.

/// Where they read.
struct DaySources {
    QString folder;    ///< the program's folder, absolute
    QString settings;  ///< the settings file; an absent one means the defaults
};

/// --today: the names that the main window announces on `today`, one per line. Throws RunTimeError.
void PrintToday(const DaySources& sources, QDate today, LineOutput& output);

/// --days: a line of DayLines for each of `days`, which are inside LinedDays. Does not read the settings.
/// Throws RunTimeError.
void PrintDays(const DaySources& sources, const days::DayRange& days, LineOutput& output);

/// Runs the command of `options`, with their error if they have one. Returns the exit code of the process: 0,
/// 1 if a file could not be read or standard output not be written, 2 if the options are wrong; these two
/// with one line on standard error. Ignores SIGPIPE from then on.
int RunDayCommand(const Options& options);

}  // namespace tickwell::app
