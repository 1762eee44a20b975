// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace tickwell {

/// One word of a command. In double quotes it may hold blanks; it is then a name, never one of the words that
/// the language knows.
struct CommandWord {
    QString text;
    bool isQuoted = false;

    bool operator==(const CommandWord&) const = default;
};

enum class CommandVerb { Open, Close, Play, Stop, Pause, Resume, Set, Status };

/// A command as far as it says what is to be done to whom. The words that follow are read only once it is
/// known that there is a device of that name.
struct Command {
    CommandVerb verb = CommandVerb::Status;
    QString name;
    QList<CommandWord> rest;
};

struct OpenOptions {
    QString alias;  ///< the name itself where no other is given
    bool wait = false;
};

struct PlayOptions {
    std::optional<QString> from;  ///< digits and colons; what they mean depends on the device's time format
    std::optional<QString> to;
    bool wait = false;
};

enum class StatusItem { TrackCount, Length, Position, CurrentTrack, Mode, MediaPresent };

struct StatusOptions {
    StatusItem item = StatusItem::Mode;
    std::optional<qint32> track;  ///< of Length and Position alone
};

/// Blanks and tabs part words, words are taken without regard to case. All of these throw CommandError.
Command CommandOf(QStringView text);
OpenOptions OpenOptionsOf(const Command& command);
PlayOptions PlayOptionsOf(const Command& command);
StatusOptions StatusOptionsOf(const Command& command);

/// The word behind "time format", in small letters; empty where there is none.
QString TimeFormatOf(const Command& command);

/// For verbs that take no word but "wait".
void RequireNoOptions(const Command& command);

}  // namespace tickwell
