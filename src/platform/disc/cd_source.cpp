// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_source.h"

#include <dirent.h>
#include <sys/stat.h>

#include <QFile>
#include <QStringList>
#include <algorithm>
#include <array>
#include <memory>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 2> kDrivePrefixes{u"sr", u"scd"};

bool IsBlockDevice(const QString& path) {
    struct stat found {};
    return stat(QFile::encodeName(path).constData(), &found) == 0 && S_ISBLK(found.st_mode);
}

/// Whether a device name is that of a CD drive: "sr" or "scd", and a number.
bool IsNameOfDrive(const QString& name) {
    return std::any_of(kDrivePrefixes.begin(), kDrivePrefixes.end(), [&](const QStringView prefix) {
        return name.startsWith(prefix) && name.size() > prefix.size() && name[prefix.size()] >= u'0' &&
               name[prefix.size()] <= u'9';
    });
}

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

/// The names of drives in a folder, sorted. Uses readdir: QDir would load the regular expression engine to
/// match names with a pattern.
QStringList NamesOfDrives(const QString& folder) {
    QStringList names;
    const std::unique_ptr<DIR, FolderCloser> open(opendir(QFile::encodeName(folder).constData()));
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const QString name = QFile::decodeName(entry->d_name);
        if (IsNameOfDrive(name)) {
            names.append(name);
        }
    }
    names.sort();
    return names;
}

}  // namespace

QString CdSource(const QString& named, const QString& deviceFolder) {
    if (!named.isEmpty()) {
        return QFile::exists(named) ? named : QString();
    }
    for (const QString& name : QStringList{u"cdrom"_s, u"dvd"_s} + NamesOfDrives(deviceFolder)) {
        QString path = deviceFolder + u'/' + name;
        if (IsBlockDevice(path)) {
            return path;
        }
    }
    return {};
}

}  // namespace tickwell::platform
