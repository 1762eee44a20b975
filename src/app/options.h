// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

#include "app/command_options.h"
#include "app/request.h"
#include "days/day_lines.h"

namespace tickwell::app {

/// Time controlled by another process; for developers and the program's own tests.
struct VirtualTimeOption {
    int readFrom = -1;  ///< file descriptors inherited from the parent process
    int writeTo = -1;
    QDateTime wall;
    qint64 tick = 0;  ///< ms
};

struct Options {
    QString folder;  ///< empty if not given
    QString disc;    ///< a drive or an image, absolute; empty if neither argument nor environment names one
    Request request = Request::ComeForward;    ///< for the running instance, or to carry out after the start
    bool printsToday = false;                  ///< print today's names instead of starting
    std::optional<days::DayRange> printsDays;  ///< print these days instead; inside days::LinedDays
    std::optional<CommandOption> command;      ///< send this to the running clock instead
    QString exportsTo;                         ///< write the anniversaries to this file instead; absolute
    QString importsFrom;                       ///< read anniversaries from this file instead; absolute
    bool isDryRun = false;                     ///< with `importsFrom`: store nothing
    bool exchanges = false;                    ///< an export or import was requested, even if `error` is set
    bool sendsCommand = false;  ///< a command to the running instance was requested, even if `error` is set
    bool needsNoWindow =
        false;  ///< today, days, an export, an import or a command was requested, even if `error` is set
    std::optional<VirtualTimeOption> virtualTime;
    QString answer;  ///< to be printed instead of starting; empty if there is none
    QString error;   ///< what is wrong with the arguments; empty if they are valid
};

/// Parses `arguments`, as returned by QCoreApplication::arguments with the program's name first. The
/// environment variable TICKWELL_CD also names a disc.
Options OptionsOf(const QStringList& arguments);

}  // namespace tickwell::app
