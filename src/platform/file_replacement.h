// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// Gives the file `path` these contents, all or nothing: they are written beside it, brought to the disk and
/// renamed over it. The file can be read by its owner alone. A symbolic link stays one, and its target is
/// replaced. Returns an empty text, or the reason why the old file stands: it may be read-only, no regular
/// file, or the disk is full.
[[nodiscard]] QString ReplaceFile(const QString& path, const QByteArray& bytes);

}  // namespace tickwell
