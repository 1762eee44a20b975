// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::platform {

/// A lock file held by one process at a time. The kernel releases it when the process ends for any reason, so
/// nothing has to be written into the file or synced: a start never waits for a disk.
class FileLock {
public:
    enum class Outcome {
        Taken,
        HeldElsewhere,
        Impossible,  ///< the file can be neither opened nor created
    };

    /// `path`: the file, created if missing, and removed by the destructor if this object holds it.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Tries once, without waiting. Succeeds if this object holds it already.
    Outcome Take();

private:
    bool IsStillThere(int file) const;

    QByteArray m_path;
    int m_file = -1;
};

}  // namespace tickwell::platform
