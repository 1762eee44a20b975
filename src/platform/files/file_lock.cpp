// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

namespace tickwell::platform {

namespace {

constexpr mode_t kEveryoneMayLook = 0644;

bool TakeNow(int file) {
    int result = 0;
    do {
        result = flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

}  // namespace

FileLock::FileLock(const QString& path) : m_path(QFile::encodeName(path)) {}

FileLock::~FileLock() {
    if (m_file >= 0) {
        unlink(m_path.constData());  // before unlocking: a process that has already opened the file finds it
                                     // removed and creates a new one
        close(m_file);
    }
}

FileLock::Outcome FileLock::Take() {
    while (m_file < 0) {
        const int file =
            open(m_path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kEveryoneMayLook);
        if (file < 0) {
            return Outcome::Impossible;
        }
        if (!TakeNow(file)) {
            const bool isHeld = errno == EWOULDBLOCK;
            close(file);
            return isHeld ? Outcome::HeldElsewhere : Outcome::Impossible;
        }
        if (IsStillThere(file)) {
            m_file = file;
        } else {
            close(file);  // its holder removed it between open and flock
        }
    }
    return Outcome::Taken;
}

bool FileLock::IsStillThere(int file) const {
    struct stat held {};
    struct stat named {};
    return fstat(file, &held) == 0 && stat(m_path.constData(), &named) == 0 && held.st_dev == named.st_dev &&
           held.st_ino == named.st_ino;
}

}  // namespace tickwell::platform
