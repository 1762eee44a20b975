// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::platform {

/// Replaces the contents of the file `path` atomically: they are written beside it, synced and renamed over
/// it. Only the owner can read the file. If it is a symbolic link, its target is replaced. Returns an empty
/// text, or the reason why the old file is unchanged: it is read-only or not a regular file, or the disk is
/// full.
[[nodiscard]] QString ReplaceFile(const QString& path, const QByteArray& bytes);

}  // namespace tickwell::platform
