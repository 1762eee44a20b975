// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell::platform {

// Files and folders are written under a temporary name and renamed when they are complete. If the process is
// killed before that, the temporary one is left behind, and a later start removes it.

/// The temporary name for `path`, beside it, as a template for QTemporaryFile and QTemporaryDir. Users do not
/// give such names to their own copies.
QString UnfinishedTemplate(const QString& path);

/// While it exists, RemoveUnfinished removes nothing in `folder`, neither in this process nor in others.
class UnfinishedFilesInUse {
public:
    explicit UnfinishedFilesInUse(const QString& folder);
    ~UnfinishedFilesInUse();
    UnfinishedFilesInUse(const UnfinishedFilesInUse&) = delete;
    UnfinishedFilesInUse& operator=(const UnfinishedFilesInUse&) = delete;

private:
    int m_folder;
};

/// Removes temporary files or folders left behind for `path`, unless one is being written now. A folder is
/// only removed if it contains nothing but files of these names, finished or not.
void RemoveUnfinished(const QString& path, const QStringList& filesOfFolder = {});

}  // namespace tickwell::platform
