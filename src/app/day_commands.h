// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/line_output.h"
#include "app/options.h"

namespace tickwell::app {

// The commands that print days and exit. They need no window, can run while the program does, and change no
// file: they do not lock the folder, take no lock on DayDate.lock, and fail after half a second if another
// process keeps the database locked.

/// The folder and file that they read from.
struct DaySources {
    QString folder;    ///< the program's folder, absolute
    QString settings;  ///< the settings file; an absent one means the defaults
};

/// --today: the names that the main window announces on `today`, one per line. Throws RunTimeError.
void PrintToday(const DaySources& sources, QDate today, LineOutput& output);

/// --days: a line of DayLines for each of `days`, which are inside LinedDays. Does not read the settings.
/// Throws RunTimeError.
void PrintDays(const DaySources& sources, const days::DayRange& days, LineOutput& output);

/// Runs the command in `options`, or reports their error. Returns the exit code of the process: 0 on success,
/// 1 if a file could not be read or standard output could not be written, 2 if the options are wrong. In the
/// last two cases one line is printed to standard error. Ignores SIGPIPE from then on.
int RunDayCommand(const Options& options);

}  // namespace tickwell::app
