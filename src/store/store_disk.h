// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stop_token>

#include "core/errors.h"
#include "store/sqlite_connection.h"

namespace tickwell::store {

/// A file operation that failed, with the path that it failed on.
class DiskError : public RunTimeError {
public:
    DiskError(const QString& path, int code);

    /// The errno.
    int Code() const { return m_code; }

private:
    int m_code;
};

/// The file operations of import, compaction and recovery, one function each, so that a test can make any of
/// them fail. Errors are thrown as DiskError. A new file that fails is removed; until it is complete, no
/// other user may read it.
class StoreDisk {
public:
    StoreDisk() = default;
    StoreDisk(const StoreDisk&) = delete;
    StoreDisk& operator=(const StoreDisk&) = delete;
    virtual ~StoreDisk() = default;

    /// The size of a file in bytes. Throws OverflowError for 2 GiB and more.
    virtual qint32 Size(const QString& path) = 0;

    /// Creates the file `path` with the permissions `mode`, writes `bytes` and syncs them. EEXIST if the file
    /// exists.
    virtual void Create(const QString& path, unsigned mode, const QByteArray& bytes) = 0;

    /// Copies the open file, byte for byte and with its permissions, to the new file `to` and syncs it and
    /// its folder to the disk.
    virtual void Copy(const SqliteConnection& from, const QString& to) = 0;

    /// Writes the rows of the open file, without empty space, to the new file `to`, with the same
    /// permissions, and syncs it to the disk. The caller must check whether the new file is usable.
    virtual void Compact(SqliteConnection& from, const QString& to) = 0;

    /// Creates a hard link to the file `from`. EEXIST if `to` exists.
    virtual void Link(const QString& from, const QString& to) = 0;

    /// Replaces `to` atomically.
    virtual void Rename(const QString& from, const QString& to) = 0;

    /// Syncs a file, or the entries of a folder, to the disk.
    virtual void Sync(const QString& path) = 0;

    /// Removes a file. A missing file is not an error.
    virtual void Remove(const QString& path) = 0;
};

/// The real file system. Once `stop` is requested, copying and compacting soon fail.
class PosixStoreDisk : public StoreDisk {
public:
    explicit PosixStoreDisk(std::stop_token stop = {}) : m_stop(std::move(stop)) {}

    qint32 Size(const QString& path) override;
    void Create(const QString& path, unsigned mode, const QByteArray& bytes) override;
    void Copy(const SqliteConnection& from, const QString& to) override;
    void Compact(SqliteConnection& from, const QString& to) override;
    void Link(const QString& from, const QString& to) override;
    void Rename(const QString& from, const QString& to) override;
    void Sync(const QString& path) override;
    void Remove(const QString& path) override;

private:
    void FailIfStopped(const QString& path) const;

    std::stop_token m_stop;
};

/// Replaces `to` atomically and syncs the change to the disk. After an error `to` may or may not be replaced.
void RenameSafely(StoreDisk& disk, const QString& from, const QString& to);

}  // namespace tickwell::store
