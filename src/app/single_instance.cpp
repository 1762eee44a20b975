// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 3000ms;  // for the first process to answer; it may be starting up itself
constexpr auto kForward = "forward\n";
constexpr auto kMenu = "menu\n";

/// A socket in the user's own run-time folder, or among the temporary files where there is none; named by the
/// program folder through a hash, since names of sockets are short and paths are not.
QString SocketPath(const QString& folder) {
    const QByteArray path = QFileInfo(folder).canonicalFilePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().first(16);
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return u"%1/tickwell-%2-%3"_s.arg(runtime.isEmpty() ? QDir::tempPath() : runtime)
        .arg(getuid())
        .arg(QLatin1StringView(hash));
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder)
    : m_socketFile(SocketPath(folder)),
      m_lockFile(folder + u"/.tickwell.lock"),
      m_lock(m_lockFile),
      m_socket([this](const QByteArray& word) { Hear(word); }) {}

bool SingleInstance::Acquire() {
    switch (m_lock.Take()) {
        case FileLock::Outcome::Taken:
            break;
        case FileLock::Outcome::HeldElsewhere:
            return false;
        case FileLock::Outcome::Impossible:
            throw RunTimeError(u"プログラムのフォルダーに書き込めません。\r\n"_s + m_lockFile);
    }
    // What stands there was left by a process that was killed, for the lock is ours. Without the socket the
    // program still runs; only a second start cannot call it.
    m_socket.Listen(m_socketFile);
    return true;
}

bool SingleInstance::CallFirst(bool withMenu) const {
    return SayWord(m_socketFile, withMenu ? kMenu : kForward, kPatience);
}

void SingleInstance::Hear(const QByteArray& word) {
    if (word == kForward || word == kMenu) {
        Q_EMIT Called(word == kMenu);
    }
}

}  // namespace tickwell
