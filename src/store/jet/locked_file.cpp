// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/locked_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QFile>
#include <algorithm>
#include <cerrno>

#include "core/errors.h"

namespace tickwell::store {

namespace {

struct stat StateOf(int file) {
    struct stat state {};
    if (fstat(file, &state) != 0) {
        throw RunTimeError(qt_error_string(errno));
    }
    return state;
}

}  // namespace

LockedFile::LockedFile(const QString& path)
    : m_file(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}

LockedFile::~LockedFile() {
    if (m_file >= 0) {
        close(m_file);  // errors do not matter: nothing was written
    }
}

QByteArray LockedFile::Read(qsizetype atMost) const {
    const qsizetype length = std::min(atMost, qsizetype{StateOf(m_file).st_size});
    QByteArray bytes(length, Qt::Uninitialized);
    qsizetype size = 0;
    while (size < length) {
        const ssize_t got = pread(m_file, bytes.data() + size, static_cast<size_t>(length - size), size);
        if (got < 0 && errno != EINTR) {
            throw RunTimeError(qt_error_string(errno));
        }
        if (got == 0) {
            break;
        }
        size += got < 0 ? 0 : got;
    }
    bytes.truncate(size);
    return bytes;
}

bool LockedFile::Lock() const {
    return flock(m_file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool LockedFile::IsAt(const QString& path) const {
    struct stat here {};
    struct stat there {};
    return fstat(m_file, &here) == 0 && stat(QFile::encodeName(path).constData(), &there) == 0 &&
           here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

unsigned LockedFile::Mode() const {
    return StateOf(m_file).st_mode & 0777;
}

}  // namespace tickwell::store
