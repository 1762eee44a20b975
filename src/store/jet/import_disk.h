// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// The file operations of an import, one function each, so that a test can make any of them fail. Each
/// returns 0 or the errno of its failure.
class ImportDisk {
public:
    ImportDisk() = default;
    ImportDisk(const ImportDisk&) = delete;
    ImportDisk& operator=(const ImportDisk&) = delete;
    virtual ~ImportDisk() = default;

    /// Creates the file `path` with the permissions `mode`, writes `bytes` and syncs them. EEXIST if the file
    /// exists; an incomplete file is removed.
    virtual int Create(const QString& path, unsigned mode, const QByteArray& bytes) = 0;

    /// Creates a hard link to the file `from`. EEXIST if `to` exists.
    virtual int Link(const QString& from, const QString& to) = 0;

    /// Replaces `to` atomically.
    virtual int Rename(const QString& from, const QString& to) = 0;

    /// Syncs a file, or the entries of a folder, to the disk.
    virtual int Sync(const QString& path) = 0;

    /// Removes a file that the import created.
    virtual int Remove(const QString& path) = 0;
};

/// The real file system.
class PosixImportDisk : public ImportDisk {
public:
    int Create(const QString& path, unsigned mode, const QByteArray& bytes) override;
    int Link(const QString& from, const QString& to) override;
    int Rename(const QString& from, const QString& to) override;
    int Sync(const QString& path) override;
    int Remove(const QString& path) override;
};

}  // namespace tickwell
