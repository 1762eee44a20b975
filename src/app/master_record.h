// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace tickwell::app {

/// Size limit of a master, in bytes.
inline constexpr qint64 kLargestMaster = qint64{64} << 20;

/// Records the master files that the program folder was last filled from, in its file ".masters". It
/// distinguishes the user's changes from outdated masters, and a start without new masters reads only this
/// file.
class MasterRecord {
public:
    static QString FileName();

    struct Entry {
        qint64 size = 0;      ///< bytes of the master
        qint64 modified = 0;  ///< modification time of the master, ms since 1970
        QByteArray sha256;    ///< of its contents, hexadecimal
    };

    /// The record of `folder`; empty if it is missing or damaged.
    static MasterRecord Read(const QString& folder);

    /// Throws RunTimeError.
    void Write(const QString& folder) const;

    /// Whether the master has the size and modification time recorded under this name.
    bool IsKnown(const QString& name, const QString& masterPath) const;
    /// Whether the copy still has the recorded contents, so the user has not changed it.
    bool IsUntouched(const QString& name, const QString& copyPath) const;
    /// Records the master under this name. Throws RunTimeError.
    void Set(const QString& name, const QString& masterPath);

private:
    QMap<QString, Entry> m_entries;
};

}  // namespace tickwell::app
