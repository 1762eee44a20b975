// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// The last actions, kept in static memory so that a crashing process can still print them. There is one per
/// process.
class Trail {
public:
    /// Prints the trail, with `heading` first, before a signal, a fatal Qt message or a sanitizer ends the
    /// process. An action that takes more than two minutes of real time ends the process as well.
    static void Begin(const QString& heading);

    /// Records the action that is about to start.
    static void Note(const QString& action);

    /// Identifies all notes so far by their number and a hash of their texts.
    static QString Fingerprint();

    /// Writes heading and trail to standard error.
    static void Tell();

    /// The warnings that Qt has issued since the last call.
    static QStringList TakeWarnings();
};

}  // namespace tickwell
