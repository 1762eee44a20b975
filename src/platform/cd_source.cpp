// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/cd_source.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

bool IsBlockDevice(const QString& path) {
    struct stat found {};
    return stat(QFile::encodeName(path).constData(), &found) == 0 && S_ISBLK(found.st_mode);
}

}  // namespace

QString CdSource(const QString& named, const QString& deviceFolder) {
    if (!named.isEmpty()) {
        return QFile::exists(named) ? named : QString();
    }
    const QDir folder(deviceFolder);
    const QStringList names =
        QStringList{u"cdrom"_s, u"dvd"_s} +
        folder.entryList({u"sr[0-9]*"_s, u"scd[0-9]*"_s}, QDir::System | QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (IsBlockDevice(folder.filePath(name))) {
            return folder.filePath(name);
        }
    }
    return {};
}

}  // namespace tickwell
