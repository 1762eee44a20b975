// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/inotify_folder_watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QFile>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/log.h"

namespace tickwell::platform {

namespace {

constexpr std::uint32_t kChanges =
    IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t kFolderIsGone = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;
constexpr std::size_t kBufferSize = 16384;  // some hundred events

}  // namespace

InotifyFolderWatch::~InotifyFolderWatch() {
    Stop();
}

bool InotifyFolderWatch::Watch(const QString& folder, std::function<void()> changed) {
    Stop();
    m_inotify = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_inotify < 0 || inotify_add_watch(m_inotify, QFile::encodeName(folder).constData(), kChanges) < 0) {
        qCWarning(PlatformLog).noquote() << "the folder is not watched:" << folder << qt_error_string(errno);
        Stop();
        return false;
    }
    m_changed = std::move(changed);
    m_notifier = std::make_unique<QSocketNotifier>(m_inotify, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { Read(); });
    return true;
}

void InotifyFolderWatch::Stop() {
    if (m_notifier) {  // may be the sender of the signal that is being handled
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    if (m_inotify >= 0) {
        close(m_inotify);  // errors do not matter: nothing was written
        m_inotify = -1;
    }
}

void InotifyFolderWatch::Read() {
    alignas(inotify_event) std::array<char, kBufferSize> buffer{};
    bool isGone = false;
    bool isChanged = false;
    for (;;) {
        const ssize_t size = read(m_inotify, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size <= 0) {
            break;
        }
        isChanged = true;
        for (std::size_t at = 0; at + sizeof(inotify_event) <= static_cast<std::size_t>(size);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            isGone = isGone || (event.mask & kFolderIsGone) != 0;
            at += sizeof event + event.len;
        }
    }
    if (isGone) {
        Stop();
    }
    if (isChanged) {
        const auto changed = m_changed;  // a copy: the listener may watch another folder
        changed();
    }
}

}  // namespace tickwell::platform
