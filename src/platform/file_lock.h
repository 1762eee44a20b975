// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// A file that one process at a time holds. The system lets go of it with the process, however that ends, so
/// that nothing has to be written into the file or brought to the disk: a start never waits for one.
class FileLock {
public:
    enum class Outcome {
        Taken,
        HeldElsewhere,
        Impossible,  ///< the file can be neither opened nor made
    };

    /// `path`: the file, made where it is missing and removed with this object where that holds it.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Tries once and never waits. Held already, it is taken.
    Outcome Take();

private:
    bool IsStillThere(int file) const;

    QByteArray m_path;
    int m_file = -1;
};

}  // namespace tickwell
