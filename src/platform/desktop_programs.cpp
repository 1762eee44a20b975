// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop_programs.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace tickwell {

QString DesktopPrograms::Find(const QString& name) const {
    // A path would be found as well, wherever it points to; only bare names are looked up.
    return name.isEmpty() || name.contains(u'/') ? QString() : QStandardPaths::findExecutable(name);
}

bool DesktopPrograms::Start(const QString& file, const QStringList& arguments, const QString& folder) {
    // A bare name would be searched on the path, and another program of that name started instead.
    return QFileInfo(file).isAbsolute() && QProcess::startDetached(file, arguments, folder);
}

}  // namespace tickwell
