// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stop_token>

#include "store/sqlite_connection.h"

namespace tickwell {

/// What a compaction does to the folder, one step each, so that a test can let any one of them fail. Errors
/// are thrown as RunTimeError.
class CompactionDisk {
public:
    CompactionDisk() = default;
    CompactionDisk(const CompactionDisk&) = delete;
    CompactionDisk& operator=(const CompactionDisk&) = delete;
    virtual ~CompactionDisk() = default;

    /// The size of a file in bytes. OverflowError for 2 GiB and more.
    virtual qint32 Size(const QString& path) = 0;

    /// Copies the open file, byte for byte and with its permissions, into the new file `to`, on the disk. One
    /// that could not be finished is removed again.
    virtual void Copy(const SqliteConnection& from, const QString& to) = 0;

    /// Writes the rows of the open file, and no empty space, into the new file `to`, with its permissions, on
    /// the disk. Whether that file can be used is for the caller to check.
    virtual void Compact(SqliteConnection& from, const QString& to) = 0;

    /// Replaces `to` in one step, on the disk. After an error it is replaced or not.
    virtual void Rename(const QString& from, const QString& to) = 0;

    /// Removes a file. That there is none is no error.
    virtual void Remove(const QString& path) = 0;
};

/// The real folder. Once `stop` is requested, copying and compacting fail soon.
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
