// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "platform/file_lock.h"
#include "platform/word_socket.h"

namespace tickwell {

/// One running program a folder. A lock file in the folder decides who is the first; a local socket of the
/// user's alone carries the one word of a second start to it: to come forward, or to open the menu as well.
/// Another user's word is not heard, and none is told to another user's program.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `folder`: the program's folder; it exists.
    explicit SingleInstance(const QString& folder);

    /// True when this process is the first; it then listens until its end. Throws RunTimeError when the
    /// folder does not take a lock file.
    bool Acquire();

    /// Asks the first process to come forward, with its menu when wanted; false when it does not answer.
    bool CallFirst(bool withMenu) const;

    /// After CallFirst failed: what the user is told, with the path of the socket and what to do.
    QString WhyNoAnswer() const;

Q_SIGNALS:
    /// Another start asked this process to come forward.
    void Called(bool withMenu);

private:
    void Hear(const QByteArray& word);

    QString m_socketFile;
    QString m_lockFile;
    FileLock m_lock;
    WordSocket m_socket;
};

}  // namespace tickwell
