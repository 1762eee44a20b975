// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// Writes a file that the user has chosen, in place of an old one: completely, or not at all. Returns an
/// empty text, or the reason why the old file is unchanged or there is none: the folder or the file is
/// write-protected, it is not a regular file, or the disk is full.
[[nodiscard]] QString SaveFile(const QString& path, const QByteArray& bytes);

}  // namespace tickwell
