// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>
#include <QString>
#include <memory>

#include "core/ports/time_jumps.h"

namespace tickwell::platform {

/// Owns a file descriptor; -1 for none.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor();
    Q_DISABLE_COPY_MOVE(Descriptor)

    int Number() const { return m_number; }

private:
    int m_number;
};

/// Time jumps reported by the kernel: a timerfd that is cancelled when the wall clock is set or the machine
/// resumes, and an inotify watch on the zone file. If the kernel refuses either, such jumps are not reported.
class SystemTimeJumps : public TimeJumps {
public:
    /// `zoneFile`: absolute. It may be replaced, and it may be missing.
    explicit SystemTimeJumps(const QString& zoneFile = QStringLiteral("/etc/localtime"));

    void Listen(std::function<void()> onJump) override;

private:
    void Arm();
    void ClockWasSet();
    void FolderChanged();
    void Tell() const;

    QByteArray m_zoneName;  // of the file in its folder
    std::function<void()> m_onJump;
    Descriptor m_timer;
    Descriptor m_watch;
    std::unique_ptr<QSocketNotifier> m_timerNotifier;  // destroyed before the descriptors
    std::unique_ptr<QSocketNotifier> m_watchNotifier;
};

}  // namespace tickwell::platform
