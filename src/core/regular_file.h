// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// Why a file was not read.
enum class FileProblem {
    None,
    Absent,      ///< or a dangling symbolic link
    NotRegular,  ///< a folder, a pipe, a socket or a device, or a link to one
    TooLarge,
    Unreadable,
};

struct FileContents {
    FileProblem problem = FileProblem::None;
    QByteArray bytes;  ///< empty if there is a problem
    QString reason;    ///< the problem in one sentence for the user; empty if there is none
};

/// Whether a folder has this entry; true for a dangling link too.
bool EntryExists(const QString& path);

/// Reads a whole regular file of at most `most` bytes; follows symbolic links. It never opens a pipe
/// or a device, which could block, have side effects or never end, and never reads more than `most` + 1
/// bytes.
FileContents ReadRegularFile(const QString& path, qint64 most);

}  // namespace tickwell
