// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/processes/desktop_programs.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/log.h"

namespace tickwell::platform {

QString DesktopPrograms::Find(const QString& name) const {
    // Only bare names are looked up: findExecutable would accept any path.
    return name.isEmpty() || name.contains(u'/') ? QString() : QStandardPaths::findExecutable(name);
}

bool DesktopPrograms::Start(const QString& file, const QStringList& arguments, const QString& folder) {
    if (!QFileInfo(file).isAbsolute()) {
        return false;  // a relative path would be resolved in `folder`
    }
    QByteArrayList words{QFile::encodeName(file)};
    for (const QString& argument : arguments) {
        words.append(QFile::encodeName(argument));
    }
    const int error = StartDetached(words, QFile::encodeName(folder), m_inheritance);
    if (error != 0) {
        qCWarning(PlatformLog, "cannot start %s: %s", qUtf8Printable(file),
                  qUtf8Printable(qt_error_string(error)));
    }
    return error == 0;
}

}  // namespace tickwell::platform
