// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/import_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QFile>
#include <cerrno>
#include <cstdio>

namespace tickwell {

namespace {

QByteArray Native(const QString& path) {
    return QFile::encodeName(path);
}

int ErrnoOf(int result) {
    return result == 0 ? 0 : errno;
}

int WriteAll(int file, const QByteArray& bytes) {
    for (qsizetype at = 0; at < bytes.size();) {
        const ssize_t written = write(file, bytes.constData() + at, static_cast<size_t>(bytes.size() - at));
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        at += written < 0 ? 0 : written;
    }
    return 0;
}

}  // namespace

int PosixImportDisk::Create(const QString& path, unsigned mode, const QByteArray& bytes) {
    const int file = open(Native(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        return errno;
    }
    int error = ErrnoOf(fchmod(file, mode));
    error = error != 0 ? error : WriteAll(file, bytes);
    error = error != 0 ? error : ErrnoOf(fsync(file));
    const int closed = ErrnoOf(close(file));
    error = error != 0 ? error : closed;
    if (error != 0) {
        unlink(Native(path).constData());  // the first error is the one to report
    }
    return error;
}

int PosixImportDisk::Link(const QString& from, const QString& to) {
    return ErrnoOf(link(Native(from).constData(), Native(to).constData()));
}

int PosixImportDisk::Rename(const QString& from, const QString& to) {
    return ErrnoOf(rename(Native(from).constData(), Native(to).constData()));
}

int PosixImportDisk::Sync(const QString& path) {
    const int file = open(Native(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return errno;
    }
    const int error = ErrnoOf(fsync(file));
    const int closed = ErrnoOf(close(file));
    return error != 0 ? error : closed;
}

int PosixImportDisk::Remove(const QString& path) {
    return ErrnoOf(unlink(Native(path).constData()));
}

}  // namespace tickwell
