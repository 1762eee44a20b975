// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// The last things that were done, kept in plain memory: they can be told also by a process that dies. One a
/// process.
class Trail {
public:
    /// From now on a signal or a sanitizer that ends the process tells the trail first, and so does an action
    /// that takes more than two minutes of real time, which then ends the process. `heading` is told with it.
    static void Begin(const QString& heading);

    /// What is about to be done.
    static void Note(const QString& action);

    /// All that was noted so far is told apart by this number: that of the last note, and a mix of all their
    /// texts.
    static QString Fingerprint();

    /// Writes heading and trail to the standard error output.
    static void Tell();

    /// What the toolkit has warned of since the last call.
    static QStringList TakeWarnings();
};

}  // namespace tickwell
