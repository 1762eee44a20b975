// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/kept_file.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "core/regular_file.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestKept = qint64{1} << 31;
constexpr unsigned kKeptPermissions = 0777;

struct stat StateOf(const QString& path) {
    struct stat state {};
    if (stat(QFile::encodeName(path).constData(), &state) != 0) {
        throw DiskError(path, errno);
    }
    return state;
}

/// The folder and the beginning of the name.
QString KeptStart(const QString& path) {
    const QFileInfo file(path);
    return file.path() + u'/' + file.completeBaseName() + u".before-restore";
}

void CopyTo(const QString& path, const QString& kept, StoreDisk& disk) {
    const FileContents contents = ReadRegularFile(path, kLargestKept);
    if (contents.problem != FileProblem::None) {
        throw RunTimeError(path + u"\r\n" + contents.reason);
    }
    disk.Create(kept, StateOf(path).st_mode & kKeptPermissions, contents.bytes);
}

}  // namespace

QString FreeKeptName(const QString& path) {
    const QString start = KeptStart(path);
    const QString suffix = QFileInfo(path).suffix();
    const QString end = suffix.isEmpty() ? QString() : u'.' + suffix;
    QString kept = start + end;
    for (int number = 2; EntryExists(kept); ++number) {
        kept = start + u'.' + QString::number(number) + end;
    }
    return kept;
}

bool MeansNoLinks(const DiskError& error) {
    return error.Code() == EPERM || error.Code() == ENOTSUP || error.Code() == EOPNOTSUPP;
}

QString KeepFile(const QString& path, StoreDisk& disk) {
    QString kept = FreeKeptName(path);
    if (QFileInfo(path).isSymLink()) {  // its target may be written to
        CopyTo(path, kept, disk);
        return kept;
    }
    try {
        disk.Link(path, kept);
    } catch (const DiskError& error) {
        if (!MeansNoLinks(error)) {
            throw;
        }
        CopyTo(path, kept, disk);
    }
    return kept;
}

void RemoveSecondNames(const QString& path, StoreDisk& disk) {
    const struct stat file = StateOf(path);
    const QFileInfo start(KeptStart(path));
    const QFileInfoList names = QDir(start.path()).entryInfoList({start.fileName() + u".*"_s}, QDir::Files);
    for (const QFileInfo& name : names) {
        const struct stat other = StateOf(name.filePath());
        if (other.st_ino == file.st_ino && other.st_dev == file.st_dev && !name.isSymLink()) {
            disk.Remove(name.filePath());
        }
    }
}

}  // namespace tickwell::store
