// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/shared_file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "core/errors.h"
#include "store/day_files.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTries = 100;
constexpr useconds_t kPause = 20'000;  // microseconds between two tries
constexpr mode_t kMode = 0644;

/// Opens the lock file; -1 if none can be created. A shared lock needs no write access.
int Open(const QByteArray& path) {
    const int writable = open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, kMode);
    if (writable >= 0) {
        return writable;
    }
    return open(path.constData(), O_RDONLY | O_CLOEXEC);
}

bool TakeShared(int file, const SharedFileLock::Wait& wait) {
    while (flock(file, LOCK_SH | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || !wait()) {
            return false;
        }
    }
    return true;
}

RunTimeError InUse() {
    return RunTimeError(u"データベースはほかのプログラムで使用中です。"_s);
}

QByteArray LockPath(const QString& databasePath) {
    const QFileInfo database(FollowLinks(databasePath));
    return QFile::encodeName(database.absoluteDir().filePath(database.completeBaseName() + u".lock"_s));
}

}  // namespace

SharedFileLock::Wait SharedFileLock::Patiently() {
    return [triesLeft = kTries]() mutable {
        usleep(kPause);
        return --triesLeft > 0;
    };
}

SharedFileLock::SharedFileLock(const QString& databasePath, const Wait& wait)
    : m_file(Open(LockPath(databasePath))) {
    if (m_file >= 0 && !TakeShared(m_file, wait)) {
        close(m_file);
        throw InUse();
    }
}

SharedFileLock::~SharedFileLock() {
    if (m_file >= 0) {
        close(m_file);
    }
}

void SharedFileLock::TakeExclusive() {
    if (m_file >= 0 && flock(m_file, LOCK_EX | LOCK_NB) != 0) {
        throw InUse();
    }
}

}  // namespace tickwell::store
