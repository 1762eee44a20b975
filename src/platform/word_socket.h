// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

namespace tickwell {

/// A socket among the files, of the user's alone, on which other processes of that user's say one short word
/// each. Another user's word is not heard.
class WordSocket {
public:
    static constexpr int kLongestWord = 16;  // bytes; what follows is thrown away
    static constexpr int kMostGuests = 8;    // who say nothing; the oldest makes way

    /// `heard` is called from the event loop with what a guest said, after that one was let go. It may be
    /// anything.
    explicit WordSocket(std::function<void(const QByteArray& word)> heard);
    /// Takes the socket away.
    ~WordSocket();
    WordSocket(const WordSocket&) = delete;
    WordSocket& operator=(const WordSocket&) = delete;

    /// Listens at `path` until its end, in place of a socket that an ended process left there. Called once.
    /// False if it cannot, with the reason in the log: something else is there, or the path has more than 107
    /// bytes.
    bool Listen(const QString& path);

private:
    class Ear;

    std::function<void(const QByteArray&)> m_heard;
    std::unique_ptr<Ear> m_ear;
};

/// What is at the path of a socket. A symbolic link is not followed.
enum class SocketPlace {
    Free,
    OwnSocket,  ///< a socket of this user's, whether or not a process listens at it
    Taken,      ///< anything else
};
SocketPlace SocketPlaceOf(const QString& path);

/// Says a word to the process that listens at `path`, and waits until it has let go; nothing is said to
/// another user's. False where nobody listens or lets go within `patience`.
bool SayWord(const QString& path, const QByteArray& word, std::chrono::milliseconds patience);

}  // namespace tickwell
