// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>

namespace tickwell::platform {

/// What became of a call to a running program.
struct CommandAnswer {
    enum class Kind {
        Done,
        Nobody,   ///< there is no bus, or no program on it accepts commands
        Refused,  ///< with an error, or it did not answer in time
    };

    Kind kind = Kind::Nobody;
    QVariant value;     ///< of the reply, if it has one
    QString errorName;  ///< of D-Bus, and its text
    QString errorText;
};

/// Calls a method of the program that accepts commands, and waits for at most five seconds for the bus
/// and five for the program. `arguments`:
/// qint32, QString. For a process that does nothing else: it needs neither a QCoreApplication nor an event
/// loop.
CommandAnswer CallCommand(const QString& method, const QVariantList& arguments);

}  // namespace tickwell::platform
