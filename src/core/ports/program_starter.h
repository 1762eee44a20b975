// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// Starts other programs, which then live on by themselves.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// The full path of a program that the user could start by this bare name, or an empty text.
    virtual QString Find(const QString& name) const = 0;

    /// Starts a program file with these arguments, in this folder; false when it did not start. No shell has
    /// a hand in it.
    virtual bool Start(const QString& file, const QStringList& arguments, const QString& folder) = 0;
};

}  // namespace tickwell
