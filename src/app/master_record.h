// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace tickwell {

/// bytes; a master that is larger is not taken
inline constexpr qint64 kLargestMaster = qint64{64} << 20;

/// What a program folder was last filled with, kept in its file ".masters": by it the user's own changes are
/// told from old masters, and a start with nothing new reads no file but this.
class MasterRecord {
public:
    static QString FileName();

    struct Entry {
        qint64 size = 0;      ///< bytes of the master
        qint64 modified = 0;  ///< its time of change, ms since 1970
        QByteArray sha256;    ///< its contents, hexadecimal
    };

    /// The record of `folder`; an absent or damaged one knows nothing.
    static MasterRecord Read(const QString& folder);

    /// Throws RunTimeError.
    void Write(const QString& folder) const;

    /// Whether the master file is the very one that was recorded under this name.
    bool IsKnown(const QString& name, const QString& masterPath) const;
    /// Whether the copy still is what was recorded, untouched by the user.
    bool IsUntouched(const QString& name, const QString& copyPath) const;
    /// Records the master file under this name. Throws RunTimeError.
    void Set(const QString& name, const QString& masterPath);

private:
    QMap<QString, Entry> m_entries;
};

}  // namespace tickwell
