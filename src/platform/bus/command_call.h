// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>

namespace tickwell::platform {

/// The outcome of a call to a running program.
struct CommandAnswer {
    enum class Kind {
        Done,
        Nobody,   ///< there is no bus, or no program on it accepts commands
        Refused,  ///< with an error, or no reply arrived in time
    };

    Kind kind = Kind::Nobody;
    QVariant value;     ///< of the reply, if it has one
    QString errorName;  ///< the D-Bus error
    QString errorText;
};

/// Calls a method of the program that accepts commands, and waits at most five seconds for the bus and five
/// for the program. `arguments`: qint32 or QString. It blocks and needs neither a QCoreApplication nor an
/// event loop, so it suits a process that does nothing else.
CommandAnswer CallCommand(const QString& method, const QVariantList& arguments);

}  // namespace tickwell::platform
