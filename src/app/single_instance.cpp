// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 3000;  // ms for the first process to answer; it may be starting up itself
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
    if (!socket.waitForConnected(kPatience)) {
        return false;
    }
    socket.write(withMenu ? kMenu : kForward);
    // The first process closes the connection when it has read the word.
    return socket.waitForBytesWritten(kPatience) && socket.waitForDisconnected(kPatience);
}

void SingleInstance::Answer() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            const QByteArray word = socket->readLine();
            socket->disconnectFromServer();
            if (word == kForward || word == kMenu) {
                Q_EMIT Called(word == kMenu);
            }
        });
    }
}

}  // namespace tickwell
