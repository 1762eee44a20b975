// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell {

/// What a multimedia command came to.
struct CommandResult {
    qint32 error = 0;  ///< 0 for success, else a number that ErrorText may know
    QString reply;     ///< empty where there is nothing to say or an error

    bool operator==(const CommandResult&) const = default;
};

/// Devices that are driven by texts: "open cdaudio alias CDP", "play CDP from 1000".
class CommandStrings {
public:
    virtual ~CommandStrings() = default;

    /// Carries one command out. It returns at once, but for a command that ends in the word "wait": that one
    /// returns when it is done, and windows live on meanwhile. A reply of more than `longest` characters is
    /// an error. Never throws, whatever the text.
    virtual CommandResult Send(const QString& command, qsizetype longest) = 0;

    /// What to tell the user of an error; nothing where there is no text for its number.
    virtual std::optional<QString> ErrorText(qint32 error) const = 0;
};

}  // namespace tickwell
