// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>

namespace tickwell::app {

/// What the running program is asked for over the session bus; its arguments were checked.
struct CommandOption {
    QString method;
    QVariantList arguments;
};

/// Such a command, or what is wrong with it.
struct ParsedCommand {
    std::optional<CommandOption> command;
    QString error;  ///< empty if there is a command
};

/// Parse the value of the option, and for the timer the further words of the command line: its name.
ParsedCommand ParseShow(const QString& value);
ParsedCommand ParseStopwatch(const QString& value);
ParsedCommand ParseTimer(const QString& value, const QStringList& words);

}  // namespace tickwell::app
