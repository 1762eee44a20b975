// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::app {

// Exit codes of the commands that need no window.
inline constexpr int kCommandDone = 0;
inline constexpr int kCommandFailed = 1;
inline constexpr int kWrongOptions = 2;

/// Prints an error, in which line breaks separate path and reason, on one line of standard error; returns
/// `exitCode`.
int FailCommand(int exitCode, QString error);

}  // namespace tickwell::app
