// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// The folder of the database, help, sounds and tools. The process enters it at the start; from then on it is
/// handed down as this value, and files are opened by absolute path.
class ProgramFolder {
public:
    /// None; for a place that is filled in later.
    ProgramFolder() = default;

    /// `path`: absolute.
    explicit ProgramFolder(QString path) : m_path(std::move(path)) {}

    /// Makes `path` the process's current folder and returns it by its canonical path. Throws RunTimeError.
    static ProgramFolder Entered(const QString& path);

    /// Makes it the current folder again. Throws RunTimeError if it is gone.
    void Enter() const;

    /// Absolute, without a slash at its end.
    const QString& Path() const { return m_path; }

    /// The absolute path of a file; an absolute `name` stays as it is.
    QString PathOf(const QString& name) const;

    /// `text` for the user: files of this folder by their name alone.
    QString Shortened(QString text) const;

private:
    QString m_path;
};

}  // namespace tickwell
