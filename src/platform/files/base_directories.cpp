// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/base_directories.h"

#include <QDir>
#include <QFile>

#include "platform/log.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

QString FromEnvironment(const char* variable) {
    return QFile::decodeName(qgetenv(variable));
}

/// The folder that a variable names if that is an absolute path, otherwise `standard`.
QString Folder(const char* variable, const QString& standard) {
    const QString folder = FromEnvironment(variable);
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : standard;
}

}  // namespace

void DropRelativeFolders() {
    for (const char* variable :
         {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "XDG_STATE_HOME"}) {
        const QString folder = FromEnvironment(variable);
        if (!folder.isEmpty() && !QDir::isAbsolutePath(folder)) {
            qCWarning(PlatformLog, "%s is ignored: \"%s\" is no absolute path", variable,
                      qUtf8Printable(folder));
            qunsetenv(variable);
        }
    }
}

QString ConfigHome() {
    return Folder("XDG_CONFIG_HOME", QDir::homePath() + u"/.config");
}

QString DataHome() {
    return Folder("XDG_DATA_HOME", QDir::homePath() + u"/.local/share");
}

QStringList ConfigFolders() {
    QStringList folders{ConfigHome()};
    for (const QString& folder : FromEnvironment("XDG_CONFIG_DIRS").split(u':', Qt::SkipEmptyParts)) {
        if (QDir::isAbsolutePath(folder)) {
            folders.append(QDir::cleanPath(folder));
        }
    }
    if (folders.size() == 1) {
        folders.append(u"/etc/xdg"_s);
    }
    folders.removeDuplicates();
    return folders;
}

QString RuntimeFolder() {
    return Folder("XDG_RUNTIME_DIR", QDir::tempPath());
}

}  // namespace tickwell::platform
