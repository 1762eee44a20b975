// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// The folder of the database, help, sounds and tools. The process changes to it at the start; from then on
/// it is passed as this value, and files are opened by absolute path.
class ProgramFolder {
public:
    /// No folder; for a variable that is assigned later.
    ProgramFolder() = default;

    /// `path`: absolute.
    explicit ProgramFolder(QString path) : m_path(std::move(path)) {}

    /// Makes `path` the process's current folder and returns it by its canonical path. Throws RunTimeError.
    static ProgramFolder Entered(const QString& path);

    /// Makes it the current folder again. Throws RunTimeError if it no longer exists.
    void Enter() const;

    /// Absolute, without a slash at its end.
    const QString& Path() const { return m_path; }

    /// The absolute path of a file; an absolute `name` stays as it is.
    QString PathOf(const QString& name) const;

    /// `text` for the user, with the paths of files in this folder shortened to their names.
    QString Shortened(QString text) const;

private:
    QString m_path;
};

}  // namespace tickwell
