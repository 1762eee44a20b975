// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time/system_time_jumps.h"

#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <limits>
#include <utility>

namespace tickwell::platform {

namespace {

// A zone file is replaced by rename, created again, or written in place.
constexpr quint32 kReplaced = IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE;

}  // namespace

Descriptor::~Descriptor() {
    if (m_number >= 0) {
        close(m_number);
    }
}

SystemTimeJumps::SystemTimeJumps(const QString& zoneFile)
    : m_zoneName(QFile::encodeName(QFileInfo(zoneFile).fileName())),
      m_timer(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)),
      m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    const QByteArray folder = QFile::encodeName(QFileInfo(zoneFile).path());
    if (m_watch.Number() >= 0 && inotify_add_watch(m_watch.Number(), folder.constData(), kReplaced) >= 0) {
        m_watchNotifier = std::make_unique<QSocketNotifier>(m_watch.Number(), QSocketNotifier::Read);
        QObject::connect(m_watchNotifier.get(), &QSocketNotifier::activated, m_watchNotifier.get(),
                         [this] { FolderChanged(); });
    }
    if (m_timer.Number() >= 0) {
        m_timerNotifier = std::make_unique<QSocketNotifier>(m_timer.Number(), QSocketNotifier::Read);
        QObject::connect(m_timerNotifier.get(), &QSocketNotifier::activated, m_timerNotifier.get(),
                         [this] { ClockWasSet(); });
        Arm();
    }
}

void SystemTimeJumps::Listen(std::function<void()> onJump) {
    m_onJump = std::move(onJump);
}

/// Sets a time that is never reached: the timer is only used for its cancellation.
void SystemTimeJumps::Arm() {
    itimerspec never{};
    never.it_value.tv_sec = std::numeric_limits<time_t>::max();
    if (timerfd_settime(m_timer.Number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr) !=
        0) {
        m_timerNotifier->setEnabled(false);
    }
}

void SystemTimeJumps::ClockWasSet() {
    quint64 expired = 0;
    if (read(m_timer.Number(), &expired, sizeof expired) < 0 && errno == EAGAIN) {
        return;  // a spurious notification
    }
    Arm();
    Tell();
}

/// Reports a jump if the zone file has changed or inotify has lost events; other files in its folder are
/// ignored.
void SystemTimeJumps::FolderChanged() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool isZone = false;
    for (ssize_t size = 0; (size = read(m_watch.Number(), buffer.data(), buffer.size())) > 0;) {
        for (const char* at = buffer.data(); at < buffer.data() + size;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            isZone = isZone || (event.mask & IN_Q_OVERFLOW) != 0 ||
                     (event.len > 0 && m_zoneName == at + sizeof event);
            at += sizeof event + event.len;
        }
    }
    if (isZone) {
        Tell();
    }
}

void SystemTimeJumps::Tell() const {
    if (m_onJump) {
        m_onJump();
    }
}

}  // namespace tickwell::platform
