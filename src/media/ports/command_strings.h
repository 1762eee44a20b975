// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell::media {

/// The result of a multimedia command.
struct CommandResult {
    qint32 error = 0;  ///< 0 for success, otherwise a number that ErrorText may know
    QString reply;     ///< empty on error or if there is nothing to report

    bool operator==(const CommandResult&) const = default;
};

/// Devices that are controlled by text commands: "open cdaudio alias CDP", "play CDP from 1000".
class CommandStrings {
public:
    virtual ~CommandStrings() = default;

    /// Executes one command. Returns at once, except for a play command with the word "wait": that returns
    /// when playback has ended, and windows stay responsive in the meantime. A reply of more than `longest`
    /// characters is an error. Never throws, whatever the text.
    virtual CommandResult Send(const QString& command, qsizetype longest) = 0;

    /// The message for the user; nullopt if there is no text for this number.
    virtual std::optional<QString> ErrorText(qint32 error) const = 0;
};

}  // namespace tickwell::media
