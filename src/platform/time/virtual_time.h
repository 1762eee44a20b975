// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/time_jumps.h"
#include "core/ports/timer.h"

namespace tickwell::platform {

class VirtualTimer;

/// Wall clock, tick count and timers that advance only on demand, all together: for tests, and for processes
/// that control the whole program through VirtualTimePipe.
class VirtualTime : public Clock, public TimerSource, public TimeJumps {
public:
    /// `sinceBoot`: simulated milliseconds.
    explicit VirtualTime(const QDateTime& now, qint64 sinceBoot = 0);

    QDateTime Now() const override { return QDateTime::fromMSecsSinceEpoch(m_now); }
    qint64 SinceBoot() const override { return m_sinceBoot; }
    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override;
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override;
    void Listen(std::function<void()> onJump) override { m_onJump = std::move(onJump); }

    /// Sets the wall clock only, as a user or a time server does. The zone may differ.
    void SetNow(const QDateTime& now);

    /// Suspends the machine for `milliseconds`: wall clock and tick count advance, timers do not.
    void Suspend(qint64 milliseconds);

    /// Changes the time zone to `zone`, as in TZ: the instant stays the same, the local time does not. False
    /// if the system refuses.
    bool SetZone(const QByteArray& zone);

    /// Milliseconds until the next timer is due; nullopt if none is running.
    std::optional<qint64> UntilNext() const;

    /// Advances to the next timer due within `milliseconds` and delivers its tick; returns the remaining
    /// milliseconds. If none is due, advances by all of them and returns nullopt.
    std::optional<qint64> Step(qint64 milliseconds);

    /// Advances by `milliseconds` and delivers every tick that becomes due, in order.
    void Advance(qint64 milliseconds);

private:
    friend class VirtualTimer;
    VirtualTimer* Next() const;
    void Pass(qint64 milliseconds);
    void TellOfJump() const;

    qint64 m_now;  // ms since 1970 in UTC: the zone may change in the meantime
    qint64 m_sinceBoot;
    std::function<void()> m_onJump;
    qint64 m_elapsed = 0;                  // ms since construction, the scale of the timers
    std::vector<VirtualTimer*> m_running;  // in the order in which they were started; owned by their users
};

}  // namespace tickwell::platform
