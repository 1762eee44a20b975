// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stop_token>

#include "store/sqlite_connection.h"

namespace tickwell {

/// The file operations of a compaction, one function each, so that a test can make any of them fail. Errors
/// are thrown as RunTimeError.
class CompactionDisk {
public:
    CompactionDisk() = default;
    CompactionDisk(const CompactionDisk&) = delete;
    CompactionDisk& operator=(const CompactionDisk&) = delete;
    virtual ~CompactionDisk() = default;

    /// The size of a file in bytes. Throws OverflowError for 2 GiB and more.
    virtual qint32 Size(const QString& path) = 0;

    /// Copies the open file, byte for byte and with its permissions, to the new file `to` and syncs it to the
    /// disk. An incomplete copy is removed.
    virtual void Copy(const SqliteConnection& from, const QString& to) = 0;

    /// Writes the rows of the open file, without empty space, to the new file `to`, with the same
    /// permissions, and syncs it to the disk. The caller must check whether the new file is usable.
    virtual void Compact(SqliteConnection& from, const QString& to) = 0;

    /// Replaces `to` atomically and syncs the change to the disk. After an error `to` may or may not be
    /// replaced.
    virtual void Rename(const QString& from, const QString& to) = 0;

    /// Removes a file. A missing file is not an error.
    virtual void Remove(const QString& path) = 0;
};

/// The real file system. Once `stop` is requested, copying and compacting soon fail.
class PosixCompactionDisk : public CompactionDisk {
public:
    explicit PosixCompactionDisk(std::stop_token stop = {}) : m_stop(std::move(stop)) {}

    qint32 Size(const QString& path) override;
    void Copy(const SqliteConnection& from, const QString& to) override;
    void Compact(SqliteConnection& from, const QString& to) override;
    void Rename(const QString& from, const QString& to) override;
    void Remove(const QString& path) override;

private:
    void FailIfStopped(const QString& path) const;

    std::stop_token m_stop;
};

}  // namespace tickwell
