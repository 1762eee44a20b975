// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/errors.h"

namespace tickwell::app {

/// A start that failed, with what the user needs to know below the reason: the whole path, and what to do.
class StartError : public RunTimeError {
public:
    /// `remedy`: one or more lines.
    StartError(const QString& reason, QString remedy) : RunTimeError(reason), m_remedy(std::move(remedy)) {}

    const QString& Remedy() const { return m_remedy; }

private:
    QString m_remedy;
};

/// Runs a step of the start. A RunTimeError becomes a StartError with this remedy, unless it is one already.
void WithRemedy(const QString& remedy, const std::function<void()>& step);

/// For a file that is missing in the program's folder. `master`: the installed file to copy; empty if there
/// is none.
QString MissingFileRemedy(const QString& path, const QString& master);

/// For the day database, which exists but cannot be used.
QString DayDatabaseRemedy(const QString& path);

/// For an import that a killed program has begun and that cannot be finished. `staged`: the folder of its
/// files.
QString ImportRemedy(const QString& staged);

/// For the program's folder, which cannot be entered, filled or written to.
QString FolderRemedy(const QString& folder);

/// For an installed file that a new folder should be filled with.
QString InstallationRemedy(const QString& path);

/// For a line of the settings file. `path`: of that file.
QString BadSettingRemedy(const QString& path);

}  // namespace tickwell::app
