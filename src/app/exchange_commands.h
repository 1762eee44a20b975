// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/line_output.h"
#include "app/options.h"
#include "core/ports/calendar_helper.h"

namespace tickwell::app {

// The commands that write anniversaries to a file and read them from one, and exit. They need no window and
// can run while the program does.

/// What they work with.
struct ExchangeSources {
    QString folder;          ///< the program's folder, absolute
    CalendarHelper& helper;  ///< reads iCalendar files
    QDateTime now;
};

/// --export: writes all anniversaries to `file`, iCalendar or CSV by the ending of its name, and prints what
/// was written. Throws RunTimeError.
void ExportTo(const ExchangeSources& sources, const QString& file, LineOutput& output);

/// --import: stores what is new in `file`, all or nothing, and prints the sums. With `isDryRun` stores
/// nothing and first prints a line for each entry: its state, its days and its name, separated by tabs;
/// otherwise only for those that cannot be imported. Throws RunTimeError.
void ImportFrom(const ExchangeSources& sources, const QString& file, bool isDryRun, LineOutput& output);

/// Runs the command in `options`, or reports their error. Returns the exit code of the process: 0 on success,
/// 1 on failure, with one line on standard error, 2 if the options are wrong. Ignores SIGPIPE from then on.
int RunExchangeCommand(const Options& options);

}  // namespace tickwell::app
