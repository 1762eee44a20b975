// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QFileInfo>

#include "core/errors.h"
#include "platform/files/base_directories.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 3000ms;  // for the first process to answer; it may still be starting

/// A socket in the user's runtime folder, or in the temporary directory if there is none. Its name
/// contains a hash of the program folder, because socket paths are too short for the path itself.
QString SocketPath(const QString& folder) {
    const QByteArray path = QFileInfo(folder).canonicalFilePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().first(16);
    return u"%1/tickwell-%2-%3"_s.arg(platform::RuntimeFolder()).arg(getuid()).arg(QLatin1StringView(hash));
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder)
    : m_socketFile(SocketPath(folder)),
      m_lockFile(folder + u"/.tickwell.lock"),
      m_lock(m_lockFile),
      m_socket([this](const QByteArray& word) { Hear(word); }) {}

bool SingleInstance::Acquire() {
    switch (m_lock.Take()) {
        case platform::FileLock::Outcome::Taken:
            break;
        case platform::FileLock::Outcome::HeldElsewhere:
            return false;
        case platform::FileLock::Outcome::Impossible:
            throw RunTimeError(u"プログラムのフォルダーに書き込めません。\r\n"_s + m_lockFile);
    }
    // An existing socket is left over from a killed process, because this process holds the lock. Without a
    // socket the program still runs, but a second start cannot call it.
    m_socket.Listen(m_socketFile);
    return true;
}

bool SingleInstance::CallFirst(Request request) const {
    return platform::SayWord(m_socketFile, WordOf(request) + '\n', kPatience);
}

QString SingleInstance::WhyNoAnswer() const {
    const QString beginning = u"すでに起動していますが、応答がありません。\r\n"_s + m_socketFile + u"\r\n";
    switch (platform::SocketPlaceOf(m_socketFile)) {
        case platform::SocketPlace::Taken:
            return beginning +
                   u"連絡用のソケットの場所に別のものがあります。それを移動または削除し、"
                   u"起動中の Tickwell を終了してから、もう一度起動してください。";
        case platform::SocketPlace::Free:
            return beginning +
                   u"連絡用のソケットがありません。起動中の Tickwell を終了してから、"
                   u"もう一度起動してください。";
        case platform::SocketPlace::OwnSocket:
            break;
    }
    return beginning +
           u"しばらく待っても応答がないときは、起動中の Tickwell を終了してから、"
           u"もう一度起動してください。";
}

void SingleInstance::Hear(const QByteArray& word) {
    const auto request = word.endsWith('\n') ? RequestOf(word.chopped(1)) : std::nullopt;
    if (request) {
        Q_EMIT Called(*request);
    }
}

}  // namespace tickwell::app
