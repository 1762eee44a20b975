// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace tickwell {

/// A share in the lock file beside a database ("DayDate.lock" beside "DayDate.mdb"), given back with this
/// object. Whoever wants to put another file in the database's place asks for the whole of it, and so waits
/// for every holder.
class SharedFileLock {
public:
    /// Called after each try that met a holder of the whole lock; returns true after a pause to try again,
    /// false to give up.
    using Wait = std::function<bool()>;

    /// Waits up to two seconds.
    static Wait Patiently();

    /// Makes the lock file if there is none; for a symbolic link, beside the file that it leads to. Throws
    /// RunTimeError if another program has the whole lock and `wait` gives up. In a folder in which no file
    /// can be made none can be replaced either: there it holds nothing.
    explicit SharedFileLock(const QString& databasePath, const Wait& wait = Patiently());
    ~SharedFileLock();
    SharedFileLock(const SharedFileLock&) = delete;
    SharedFileLock& operator=(const SharedFileLock&) = delete;

    /// Turns the share into the whole, without waiting: who holds a share holds it for long. Throws
    /// RunTimeError where there is another holder; this share may be gone then.
    void TakeWhole();

private:
    int m_file;  // a descriptor; -1 for none
};

}  // namespace tickwell
