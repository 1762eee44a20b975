// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/processes/word_socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSocketNotifier>
#include <array>
#include <asio.hpp>
#include <list>
#include <system_error>
#include <utility>

#include "platform/log.h"

namespace tickwell::platform {

namespace {

using Protocol = asio::local::stream_protocol;
using Socket = Protocol::socket;

/// Whether the peer belongs to this user. In the temporary directory anybody can create a socket, and
/// root can do so in every folder.
bool IsOwnUsers(Socket& socket) {
    ucred peer{};
    socklen_t size = sizeof(peer);
    return getsockopt(socket.native_handle(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == getuid();
}

/// Programs that are started must not inherit the socket.
void KeepFromChildren(int descriptor) {
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);  // fails only for an invalid descriptor
}

Protocol::endpoint AddressOf(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

/// Sends one word asynchronously while `loop` runs.
class Call {
public:
    Call(asio::io_context& loop, QByteArray word) : m_socket(loop), m_word(std::move(word)) {}

    void Begin(const Protocol::endpoint& address) {
        m_socket.async_connect(address, [this](const asio::error_code& failure) {
            if (!failure && IsOwnUsers(m_socket)) {
                Say();
            }
        });
    }

    bool WasHeard() const { return m_wasHeard; }

private:
    void Say() {
        const auto size = static_cast<std::size_t>(m_word.size());
        asio::async_write(m_socket, asio::buffer(m_word.constData(), size),
                          [this](const asio::error_code& failure, std::size_t /*size*/) {
                              if (!failure) {
                                  AwaitEnd();
                              }
                          });
    }

    /// There is no reply: the receiver closes the connection once it has read the word.
    void AwaitEnd() {
        m_socket.async_read_some(
            asio::buffer(m_answer), [this](const asio::error_code& end, std::size_t /*size*/) {
                m_wasHeard = end == asio::error::eof || end == asio::error::connection_reset;
            });
    }

    Socket m_socket;
    QByteArray m_word;
    std::array<char, 1> m_answer{};
    bool m_wasHeard = false;
};

}  // namespace

/// The listening socket. Throws std::system_error if it cannot listen.
class WordSocket::Listener {
    /// Calls `ready` when data is available. May be destroyed from within that call.
    class Notifier {
    public:
        Notifier(int descriptor, std::function<void()> ready)
            : m_notifier(new QSocketNotifier(descriptor, QSocketNotifier::Read)) {
            QObject::connect(m_notifier, &QSocketNotifier::activated, m_notifier,
                             [ready = std::move(ready)] { ready(); });
        }
        ~Notifier() {
            m_notifier->setEnabled(false);
            m_notifier->deleteLater();
        }
        Notifier(const Notifier&) = delete;
        Notifier& operator=(const Notifier&) = delete;

    private:
        QSocketNotifier* m_notifier;
    };

public:
    Listener(const QString& path, const std::function<void(const QByteArray&)>& onWord)
        : m_path(path), m_onWord(onWord), m_acceptor(m_loop) {
        const Protocol::endpoint address = AddressOf(path);
        m_acceptor.open();
        KeepFromChildren(m_acceptor.native_handle());
        m_acceptor.non_blocking(true);
        if (SocketPlaceOf(path) == SocketPlace::OwnSocket) {
            QFile::remove(path);  // if that fails, so does binding
        }
        m_acceptor.bind(address);
        // No process can connect before listen(); after it, only this user can.
        if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner)) {
            throw std::system_error(std::make_error_code(std::errc::permission_denied));
        }
        m_acceptor.listen();
        m_notifier = std::make_unique<Notifier>(m_acceptor.native_handle(), [this] { Answer(); });
    }
    ~Listener() {
        if (SocketPlaceOf(m_path) == SocketPlace::OwnSocket) {
            QFile::remove(m_path);
        }
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

private:
    struct Connection {
        Socket socket;
        std::unique_ptr<Notifier> notifier;
    };

    void Answer() {
        asio::error_code failure;
        for (Socket socket = m_acceptor.accept(failure); !failure; socket = m_acceptor.accept(failure)) {
            KeepFromChildren(socket.native_handle());
            if (IsOwnUsers(socket)) {
                Admit(std::move(socket));
            }
        }
        if (failure != asio::error::would_block) {
            // Out of descriptors, for example: the pending connection would be signalled again and again.
            m_notifier.reset();
            m_acceptor.close(failure);
        }
    }

    void Admit(Socket socket) {
        asio::error_code failure;
        socket.non_blocking(true, failure);
        if (failure) {
            return;
        }
        if (m_connections.size() >= kMostConnections) {
            m_connections.pop_front();
        }
        const auto connection =
            m_connections.insert(m_connections.end(), Connection{std::move(socket), nullptr});
        connection->notifier = std::make_unique<Notifier>(connection->socket.native_handle(),
                                                          [this, connection] { Receive(connection); });
    }

    void Receive(std::list<Connection>::iterator connection) {
        std::array<char, kLongestWord> word{};
        asio::error_code failure;
        const std::size_t length = connection->socket.read_some(asio::buffer(word), failure);
        if (failure == asio::error::would_block) {
            return;
        }
        m_connections.erase(connection);
        if (!failure) {
            m_onWord(QByteArray(word.data(), static_cast<qsizetype>(length)));
        }
    }

    QString m_path;
    const std::function<void(const QByteArray&)>& m_onWord;
    asio::io_context m_loop;  // Asio's sockets need one; it is never run
    Protocol::acceptor m_acceptor;
    std::list<Connection> m_connections;  // the oldest first
    std::unique_ptr<Notifier> m_notifier;
};

WordSocket::WordSocket(std::function<void(const QByteArray&)> onWord) : m_onWord(std::move(onWord)) {}

WordSocket::~WordSocket() = default;

bool WordSocket::Listen(const QString& path) {
    try {
        m_listener = std::make_unique<Listener>(path, m_onWord);
    } catch (const std::system_error& error) {
        qCWarning(PlatformLog, "cannot listen at %s: %s", qUtf8Printable(path), error.what());
        return false;
    }
    return true;
}

SocketPlace SocketPlaceOf(const QString& path) {
    struct stat state {};
    if (lstat(QFile::encodeName(path).constData(), &state) != 0) {
        return SocketPlace::Free;
    }
    return S_ISSOCK(state.st_mode) && state.st_uid == getuid() ? SocketPlace::OwnSocket : SocketPlace::Taken;
}

bool SayWord(const QString& path, const QByteArray& word, std::chrono::milliseconds patience) {
    try {
        asio::io_context loop;
        Call call(loop, word);
        call.Begin(AddressOf(path));
        loop.run_for(patience);
        return call.WasHeard();
    } catch (const std::system_error&) {
        return false;  // the path is too long, or no socket can be created
    }
}

}  // namespace tickwell::platform
