// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/options.h"
#include "platform/bus/command_call.h"

namespace tickwell::app {

/// What a command prints and returns to the shell.
struct CommandOutcome {
    int exitCode =
        0;  ///< 0; 1 if the command was refused or standard output failed; 3 if no clock accepts commands
    QString output;  ///< a line for standard output; empty: none
    QString error;   ///< one sentence for standard error; empty if `exitCode` is 0
};

/// The outcome of a call. A refusal by the running program is worded in the user's language.
CommandOutcome OutcomeOf(const platform::CommandAnswer& answer, bool inJapanese);

/// Runs --show, --stopwatch or --timer of `options`, with their error if they have one, and prints the
/// outcome. Needs no display. Returns the exit code of the process, which is 2 if the options are wrong.
int RunRemoteCommand(const Options& options);

}  // namespace tickwell::app
