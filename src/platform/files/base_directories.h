// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell::platform {

// The user's folders by the freedesktop.org base directory rules: all absolute, from the environment or a
// default. A relative path in the environment is invalid and is ignored; QStandardPaths would accept it.

/// Removes the variables with relative paths from the environment of this process, so that no library uses
/// them either, and logs a warning for each. To be called before any thread is started.
void DropRelativeFolders();

/// $XDG_CONFIG_HOME, or .config in the home folder.
QString ConfigHome();
/// $XDG_DATA_HOME, or .local/share in the home folder.
QString DataHome();
/// ConfigHome, then each folder of $XDG_CONFIG_DIRS, or /etc/xdg; without duplicates.
QStringList ConfigFolders();
/// $XDG_RUNTIME_DIR, or the temporary directory.
QString RuntimeFolder();

}  // namespace tickwell::platform
