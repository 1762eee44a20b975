// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// Files and folders are made whole under a name of their own and then renamed into place. If the process is
/// killed in between, such a name is left behind; a later start removes it.

/// The name under which `path` is made, beside it, as a template for QTemporaryFile and QTemporaryDir. Users
/// do not give such names to their own copies.
QString UnfinishedTemplate(const QString& path);

/// While it lives, RemoveUnfinished leaves all in `folder` alone, in this process and in others.
class UnfinishedFilesInUse {
public:
    explicit UnfinishedFilesInUse(const QString& folder);
    ~UnfinishedFilesInUse();
    UnfinishedFilesInUse(const UnfinishedFilesInUse&) = delete;
    UnfinishedFilesInUse& operator=(const UnfinishedFilesInUse&) = delete;

private:
    int m_folder;
};

/// Removes what was left of making the file or folder `path`, if nobody is making one now. A folder goes if
/// it holds nothing but files of these names, finished or not.
void RemoveUnfinished(const QString& path, const QStringList& filesOfFolder = {});

}  // namespace tickwell
