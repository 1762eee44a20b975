// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell::platform {

/// The user's folders by the freedesktop.org base directory rules: all absolute, from the environment
/// or a default. A relative path in the environment is invalid and is ignored; QStandardPaths would take it.

/// Removes those that are relative from the environment of this process, so that no library uses them
/// either, with a warning for each. To be called before any thread is started.
void DropRelativeFolders();

/// $XDG_CONFIG_HOME, else .config in the home folder.
QString ConfigHome();
/// $XDG_DATA_HOME, else .local/share in the home folder.
QString DataHome();
/// ConfigHome, then each folder of $XDG_CONFIG_DIRS, else /etc/xdg; none twice.
QStringList ConfigFolders();
/// $XDG_RUNTIME_DIR, else the temporary directory.
QString RuntimeFolder();

}  // namespace tickwell::platform
