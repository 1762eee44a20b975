// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// What the import does to the folder, one step each. Every step gives 0 or the errno of its failure, so that
/// a test can let any one of them fail.
class ImportDisk {
public:
    ImportDisk() = default;
    ImportDisk(const ImportDisk&) = delete;
    ImportDisk& operator=(const ImportDisk&) = delete;
    virtual ~ImportDisk() = default;

    /// Makes the file `path` with the permissions `mode`, writes and syncs `bytes`. EEXIST where there is
    /// one; a file that could not be finished is removed again.
    virtual int Create(const QString& path, unsigned mode, const QByteArray& bytes) = 0;

    /// A second name for the file `from`. EEXIST where `to` is taken.
    virtual int Link(const QString& from, const QString& to) = 0;

    /// Replaces `to` in one step.
    virtual int Rename(const QString& from, const QString& to) = 0;

    /// Waits until a file, or the names in a folder, are on the disk.
    virtual int Sync(const QString& path) = 0;

    /// Removes a file that the import made.
    virtual int Remove(const QString& path) = 0;
};

/// The real folder.
class PosixImportDisk : public ImportDisk {
public:
    int Create(const QString& path, unsigned mode, const QByteArray& bytes) override;
    int Link(const QString& from, const QString& to) override;
    int Rename(const QString& from, const QString& to) override;
    int Sync(const QString& path) override;
    int Remove(const QString& path) override;
};

}  // namespace tickwell
