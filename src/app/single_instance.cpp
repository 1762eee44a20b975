// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/single_instance.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 3000;      // ms for the first process to answer; it may be starting up itself
constexpr qint64 kLongestWord = 16;  // bytes; what is longer is none of ours
constexpr qsizetype kMostGuests = 8;
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

/// Whether the process at the other end is this user's. Among the temporary files anybody may make a socket,
/// and who is refused nothing gets into every folder.
bool IsOwnUsers(const QLocalSocket& socket) {
    ucred peer{};
    socklen_t size = sizeof(peer);
    const auto descriptor = static_cast<int>(socket.socketDescriptor());
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder)
    : m_socket(SocketPath(folder)), m_lockFile(folder + u"/.tickwell.lock"), m_lock(m_lockFile) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::Answer);
}

bool SingleInstance::Acquire() {
    switch (m_lock.Take()) {
        case FileLock::Outcome::Taken:
            break;
        case FileLock::Outcome::HeldElsewhere:
            return false;
        case FileLock::Outcome::Impossible:
            throw RunTimeError(u"プログラムのフォルダーに書き込めません。\r\n"_s + m_lockFile);
    }
    QLocalServer::removeServer(m_socket);  // left by a process that was killed; the lock is ours
    // Without the socket the program still runs; only a second start cannot call it.
    m_server.listen(m_socket);
    return true;
}

bool SingleInstance::CallFirst(bool withMenu) const {
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    if (!socket.waitForConnected(kPatience) || !IsOwnUsers(socket)) {
        return false;
    }
    socket.write(withMenu ? kMenu : kForward);
    // The first process closes the connection when it has read the word.
    return socket.waitForBytesWritten(kPatience) && socket.waitForDisconnected(kPatience);
}

void SingleInstance::Answer() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!IsOwnUsers(*socket)) {
            socket->abort();
            continue;
        }
        socket->setReadBufferSize(kLongestWord);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Hear(*socket); });
        MakeRoom();
        m_guests.append(socket);
    }
}

/// Whoever connects and says nothing makes way for those who come later.
void SingleInstance::MakeRoom() {
    m_guests.removeAll(nullptr);
    while (m_guests.size() >= kMostGuests) {
        if (QLocalSocket* oldest = m_guests.takeFirst()) {
            oldest->abort();
        }
    }
}

void SingleInstance::Hear(QLocalSocket& socket) {
    const QByteArray word = socket.read(kLongestWord);
    m_guests.removeAll(&socket);
    socket.abort();  // one word is all that is heard; the rest is thrown away
    if (word == kForward || word == kMenu) {
        Q_EMIT Called(word == kMenu);
    }
}

}  // namespace tickwell
