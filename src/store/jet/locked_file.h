// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace tickwell::store {

/// A file open for reading, which can be locked exclusively.
class LockedFile {
public:
    /// A missing or unreadable file is not an error: IsOpen() is then false.
    explicit LockedFile(const QString& path);
    ~LockedFile();

    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool IsOpen() const { return m_file >= 0; }

    /// Reads at most that many bytes from the beginning. Throws RunTimeError.
    QByteArray Read(qsizetype atMost) const;

    /// Acquires the lock; false if another program holds it. A file system without locks always succeeds.
    bool Lock() const;

    /// Whether `path` still refers to this file.
    bool IsAt(const QString& path) const;

    /// The permission bits of the file. Throws RunTimeError.
    unsigned Mode() const;

private:
    int m_file;
};

}  // namespace tickwell::store
