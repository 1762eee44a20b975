// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "app/request.h"
#include "platform/files/file_lock.h"
#include "platform/processes/word_socket.h"

namespace tickwell::app {

/// One running program per folder. A lock file in the folder decides which process is the first. Through a
/// local socket a second start asks it to come to the foreground or to open its menu or a window. Connections
/// of other users are closed unread, and nothing is sent to another user's process.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `folder`: the program's folder, which exists.
    explicit SingleInstance(const QString& folder);

    /// Returns whether this process is the first; it then listens until it ends. Throws RunTimeError if no
    /// lock file can be created in the folder.
    bool Acquire();

    /// Passes a request to the first process; returns false if it does not answer.
    bool CallFirst(Request request) const;

    /// The message for the user after CallFirst has failed: the path of the socket and what to do.
    QString WhyNoAnswer() const;

Q_SIGNALS:
    /// Another start has sent this request.
    void Called(tickwell::app::Request request);

private:
    void Hear(const QByteArray& word);

    QString m_socketFile;
    QString m_lockFile;
    platform::FileLock m_lock;
    platform::WordSocket m_socket;
};

}  // namespace tickwell::app
