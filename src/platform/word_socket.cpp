// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/word_socket.h"

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

namespace tickwell {

namespace {

using Protocol = asio::local::stream_protocol;
using Socket = Protocol::socket;

/// Whether the process at the other end is this user's. Among the temporary files anybody may make a socket,
/// and who is refused nothing gets into every folder.
bool IsOwnUsers(Socket& socket) {
    ucred peer{};
    socklen_t size = sizeof(peer);
    return getsockopt(socket.native_handle(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == getuid();
}

/// For programs that are started from here the socket is not there.
void KeepFromChildren(int descriptor) {
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);  // fails for what is no descriptor alone
}

Protocol::endpoint AddressOf(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

/// One word on its way, step by step, while its loop runs.
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

    /// Nothing is said in answer: who has heard the word lets go.
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

/// What listens. Throws std::system_error where it cannot begin to.
class WordSocket::Ear {
    /// Tells when there is something to read; a notifier that is dropped inside its own signal goes after it.
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
    Ear(const QString& path, const std::function<void(const QByteArray&)>& heard)
        : m_path(path), m_heard(heard), m_acceptor(m_loop) {
        const Protocol::endpoint address = AddressOf(path);
        m_acceptor.open();
        KeepFromChildren(m_acceptor.native_handle());
        m_acceptor.non_blocking(true);
        if (SocketPlaceOf(path) == SocketPlace::OwnSocket) {
            QFile::remove(path);  // if that fails, so does binding
        }
        m_acceptor.bind(address);
        // Nobody can connect before it listens, and then none but the user.
        if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner)) {
            throw std::system_error(std::make_error_code(std::errc::permission_denied));
        }
        m_acceptor.listen();
        m_notifier = std::make_unique<Notifier>(m_acceptor.native_handle(), [this] { Answer(); });
    }
    ~Ear() {
        if (SocketPlaceOf(m_path) == SocketPlace::OwnSocket) {
            QFile::remove(m_path);
        }
    }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

private:
    struct Guest {
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
            // No more descriptors, say. Whoever stands at the door would be announced again and again.
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
        if (m_guests.size() >= kMostGuests) {
            m_guests.pop_front();
        }
        const auto guest = m_guests.insert(m_guests.end(), Guest{std::move(socket), nullptr});
        guest->notifier =
            std::make_unique<Notifier>(guest->socket.native_handle(), [this, guest] { Hear(guest); });
    }

    void Hear(std::list<Guest>::iterator guest) {
        std::array<char, kLongestWord> word{};
        asio::error_code failure;
        const std::size_t length = guest->socket.read_some(asio::buffer(word), failure);
        if (failure == asio::error::would_block) {
            return;
        }
        m_guests.erase(guest);
        if (!failure) {
            m_heard(QByteArray(word.data(), static_cast<qsizetype>(length)));
        }
    }

    QString m_path;
    const std::function<void(const QByteArray&)>& m_heard;
    asio::io_context m_loop;  // what the library's sockets belong to; nothing waits in it
    Protocol::acceptor m_acceptor;
    std::list<Guest> m_guests;  // the oldest first
    std::unique_ptr<Notifier> m_notifier;
};

WordSocket::WordSocket(std::function<void(const QByteArray&)> heard) : m_heard(std::move(heard)) {}

WordSocket::~WordSocket() = default;

bool WordSocket::Listen(const QString& path) {
    try {
        m_ear = std::make_unique<Ear>(path, m_heard);
    } catch (const std::system_error& error) {
        qWarning("cannot listen at %s: %s", qUtf8Printable(path), error.what());
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
        return false;  // no such name, or no more sockets
    }
}

}  // namespace tickwell
