// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace tickwell::media {

/// One word of a command. In double quotes it may contain blanks and is always a name, never a keyword.
struct CommandWord {
    QString text;
    bool isQuoted = false;

    bool operator==(const CommandWord&) const = default;
};

enum class CommandVerb { Open, Close, Play, Stop, Pause, Resume, Set, Status };

/// The verb and the device name of a command. The words after them are parsed only once a device of that name
/// is found.
struct Command {
    CommandVerb verb = CommandVerb::Status;
    QString name;
    QList<CommandWord> rest;
};

struct OpenOptions {
    QString alias;  ///< the device name if no alias is given
    bool wait = false;
};

struct PlayOptions {
    std::optional<QString> from;  ///< digits and colons; the meaning depends on the device's time format
    std::optional<QString> to;
    bool wait = false;
};

enum class StatusItem { TrackCount, Length, Position, CurrentTrack, Mode, MediaPresent };

struct StatusOptions {
    StatusItem item = StatusItem::Mode;
    std::optional<qint32> track;  ///< only for Length and Position
};

/// Words are separated by blanks and tabs; keywords are case-insensitive. All of these throw CommandError.
Command CommandOf(QStringView text);
OpenOptions OpenOptionsOf(const Command& command);
PlayOptions PlayOptionsOf(const Command& command);
StatusOptions StatusOptionsOf(const Command& command);

/// The word after "time format", in lower case; empty if it is missing.
QString TimeFormatOf(const Command& command);

/// For verbs that accept no word but "wait".
void RequireNoOptions(const Command& command);

}  // namespace tickwell::media
