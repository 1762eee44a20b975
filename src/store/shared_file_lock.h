// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// A share in the lock file beside a database ("DayDate.lock" beside "DayDate.mdb"), given back with this
/// object. Whoever wants to put another file in the database's place asks for the whole of it, and so waits
/// for every holder.
class SharedFileLock {
public:
    /// Makes the lock file when there is none. Waits up to two seconds for one who has the whole; throws
    /// RunTimeError then. In a folder where no file can be made none can be replaced either: there it holds
    /// nothing.
    explicit SharedFileLock(const QString& databasePath);
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
