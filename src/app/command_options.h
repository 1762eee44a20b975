// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>

namespace tickwell::app {

/// A command to be sent to the running program over the session bus; its arguments have been validated.
struct CommandOption {
    QString method;
    QVariantList arguments;
};

/// A command, or an error message.
struct ParsedCommand {
    std::optional<CommandOption> command;
    QString error;  ///< empty on success
};

/// Parse the option's value; for the timer, also the remaining positional arguments, which form its name.
ParsedCommand ParseShow(const QString& value);
ParsedCommand ParseStopwatch(const QString& value);
ParsedCommand ParseTimer(const QString& value, const QStringList& words);

}  // namespace tickwell::app
