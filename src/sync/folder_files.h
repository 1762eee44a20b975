// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <optional>

#include "sync/day_file.h"

namespace tickwell::sync {

/// A folder can contain this many files of computers; of more, the first ones by name are read.
inline constexpr qsizetype kMostDayFiles = 64;

/// The files of computers in `folder`, by name; hidden ones are those of sync tools and are not listed.
/// nullopt with a `problem` for a folder that cannot be read.
std::optional<QStringList> DayFilesIn(const QString& folder, QString& problem);

/// Names, sizes, times and identities of the files: equal texts mean unchanged files.
QByteArray FingerprintOf(const QString& folder, const QStringList& names);

/// A file as it was read.
struct FolderFile {
    QByteArray bytes;  ///< empty if it was not read
    ReadDayFileResult result;
    QString why;  ///< why it is left alone; empty if it was read
};

/// Never blocks on a pipe, and never reads more than the largest permitted file.
FolderFile ReadFolderFile(const QString& path);

}  // namespace tickwell::sync
