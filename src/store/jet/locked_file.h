// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace tickwell {

/// A file open for reading, which can be locked against others who want to lock it.
class LockedFile {
public:
    /// A file that is not there or must not be read is no error: IsOpen() tells.
    explicit LockedFile(const QString& path);
    ~LockedFile();

    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool IsOpen() const { return m_file >= 0; }

    /// At most so many bytes from the beginning. Throws RunTimeError.
    QByteArray Read(qsizetype atMost) const;

    /// False where another one has the lock. A file system without locks grants it.
    bool Lock() const;

    /// Whether `path` still leads to this very file.
    bool IsAt(const QString& path) const;

    /// The permission bits of the file. Throws RunTimeError.
    unsigned Mode() const;

private:
    int m_file;
};

}  // namespace tickwell
