// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// Starts other programs, detached from this one.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// The absolute path of the executable of this name in PATH, or an empty text.
    virtual QString Find(const QString& name) const = 0;

    /// Starts an executable with these arguments in this folder, without a shell; false if that failed.
    virtual bool Start(const QString& file, const QStringList& arguments, const QString& folder) = 0;
};

}  // namespace tickwell
