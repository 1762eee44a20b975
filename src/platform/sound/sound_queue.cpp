// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sound_queue.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <algorithm>
#include <cerrno>
#include <new>
#include <thread>

#include "platform/log.h"

namespace tickwell::platform {

using sound_helper::kSoundStart;
using sound_helper::SharedSound;

namespace {

constexpr quint64 kFreedAtOnce = quint64{256} * 1024;  // bytes, a second and a half of a disc
constexpr int kLongestTaking = 20;  // ms; far longer than it takes, for a helper that died meanwhile

}  // namespace

SoundQueue::SoundQueue() : m_file(memfd_create("sound", MFD_CLOEXEC)) {
    if (m_file < 0 || ftruncate(m_file, kSoundStart) != 0) {
        qCWarning(PlatformLog, "no memory for sound");
        return;
    }
    void* const mapped = mmap(nullptr, kSoundStart, PROT_READ | PROT_WRITE, MAP_SHARED, m_file, 0);
    if (mapped != MAP_FAILED) {
        m_shared = new (mapped) SharedSound;
    }
}

SoundQueue::~SoundQueue() {
    if (m_shared != nullptr) {
        munmap(m_shared, kSoundStart);
    }
    if (m_file >= 0) {
        close(m_file);
    }
}

bool SoundQueue::Append(std::span<const qint16> samples) {
    const quint64 end = m_shared->queued;
    const auto bytes = std::as_bytes(samples);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = pwrite(m_file, bytes.data() + written, bytes.size() - written,
                                     static_cast<off_t>(kSoundStart + end + written));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            qCWarning(PlatformLog, "sound is dropped for lack of memory");
            return false;
        }
        written += static_cast<std::size_t>(count);
    }
    m_shared->queued = end + written;
    FreeTaken();
    return true;
}

quint64 SoundQueue::Start() const {
    return std::max<quint64>(m_shared->taken, m_shared->dropped);
}

qint64 SoundQueue::Waiting() const {
    return static_cast<qint64>(m_shared->queued - Start());
}

void SoundQueue::Hold(bool held) {
    m_shared->isHeld = held;
    const QDeadlineTimer patience(kLongestTaking);
    while (held && m_shared->isTaking && !patience.hasExpired()) {
        std::this_thread::yield();
    }
}

void SoundQueue::Drop() {
    m_shared->dropped = m_shared->queued.load();
}

void SoundQueue::FreeTaken() {
    const quint64 end = Start() / kSoundStart * kSoundStart;
    if (end < m_freed + kFreedAtOnce) {
        return;
    }
    if (fallocate(m_file, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE,
                  static_cast<off_t>(kSoundStart + m_freed), static_cast<off_t>(end - m_freed)) != 0) {
        qCWarning(PlatformLog, "sound that was played stays in memory");
    }
    m_freed = end;
}

}  // namespace tickwell::platform
