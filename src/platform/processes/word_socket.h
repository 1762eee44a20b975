// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

namespace tickwell::platform {

/// A Unix domain socket on which other processes of the same user send one short word each. Connections of
/// other users are closed unread.
class WordSocket {
public:
    static constexpr int kLongestWord = 16;     // bytes; what follows is discarded
    static constexpr int kMostConnections = 8;  // open and silent ones; a further one closes the oldest

    /// `onWord` is called from the event loop with the received bytes, which are untrusted, once their
    /// connection is closed.
    explicit WordSocket(std::function<void(const QByteArray& word)> onWord);
    /// Closes the socket and removes its file.
    ~WordSocket();
    WordSocket(const WordSocket&) = delete;
    WordSocket& operator=(const WordSocket&) = delete;

    /// Listens at `path`, replacing the socket of a process that was killed. Called once. Returns false, with
    /// the reason in the log, if something else is there or the path has more than 107 bytes.
    bool Listen(const QString& path);

private:
    class Listener;

    std::function<void(const QByteArray&)> m_onWord;
    std::unique_ptr<Listener> m_listener;
};

/// What exists at the path of a socket. Symbolic links are not followed.
enum class SocketPlace {
    Free,
    OwnSocket,  ///< a socket of this user's, whether or not a process listens at it
    Taken,      ///< anything else
};
SocketPlace SocketPlaceOf(const QString& path);

/// Sends a word to the process that listens at `path`, unless that belongs to another user, and waits until
/// it closes the connection. False if no process listens or the connection is not closed within `patience`.
bool SayWord(const QString& path, const QByteArray& word, std::chrono::milliseconds patience);

}  // namespace tickwell::platform
