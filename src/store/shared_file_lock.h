// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace tickwell::store {

/// A shared lock on the lock file beside a database ("DayDate.lock" beside "DayDate.mdb"), released by the
/// destructor. Replacing the database file needs the exclusive lock, which fails while others hold a shared
/// one.
class SharedFileLock {
public:
    /// Called after each attempt that found the lock held exclusively; returns true after a pause to try
    /// again, false to give up.
    using Wait = std::function<bool()>;

    /// Waits up to two seconds.
    static Wait Patiently();

    /// Creates the lock file if it is missing; for a symbolic link, beside the link's target. Throws
    /// RunTimeError if another program holds the exclusive lock and `wait` gives up. In a folder in which no
    /// file can be created, none can be replaced either: the lock then does nothing.
    explicit SharedFileLock(const QString& databasePath, const Wait& wait = Patiently());
    ~SharedFileLock();
    SharedFileLock(const SharedFileLock&) = delete;
    SharedFileLock& operator=(const SharedFileLock&) = delete;

    /// Upgrades to the exclusive lock without waiting, because shared locks are held for long. Throws
    /// RunTimeError if there is another holder; the shared lock may be lost then.
    void TakeExclusive();

private:
    int m_file;  // a descriptor; -1 for none
};

}  // namespace tickwell::store
