// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "core/ports/clock.h"
#include "core/ports/time_jumps.h"
#include "core/ports/timer.h"

namespace tickwell {

class VirtualTimer;

/// Wall clock, tick and timers that move only when told to, all three together. Tests turn it by hand, and so
/// does whoever drives the whole program through VirtualTimePipe.
class VirtualTime : public Clock, public TimerSource, public TimeJumps {
public:
    /// `tick`: milliseconds since the machine is said to have started.
    explicit VirtualTime(const QDateTime& now, qint64 tick = 0);

    QDateTime Now() const override { return QDateTime::fromMSecsSinceEpoch(m_now); }
    qint32 Tick() const override { return static_cast<qint32>(static_cast<quint32>(m_tick)); }
    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override;
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override;
    void Listen(std::function<void()> onJump) override { m_onJump = std::move(onJump); }

    /// Sets the wall clock alone, as a user or a time server does. Its zone may be another one.
    void SetNow(const QDateTime& now);

    /// The machine sleeps for `milliseconds`: wall clock and tick go on, timers wait as long as before.
    void Suspend(qint64 milliseconds);

    /// Takes the machine to another zone, as TZ names it: the moment is the same, the wall clock is not.
    /// False where the system refuses.
    bool SetZone(const QByteArray& zone);

    /// Milliseconds until the next timer is due; nothing when none runs.
    std::optional<qint64> UntilNext() const;

    /// Jumps to the next timer due within `milliseconds` and delivers its tick; returns what is left of them.
    /// With none due in that time it jumps to its end and returns nothing.
    std::optional<qint64> Step(qint64 milliseconds);

    /// Lets `milliseconds` pass, with every tick that falls due, in order.
    void Advance(qint64 milliseconds);

private:
    friend class VirtualTimer;
    VirtualTimer* Next() const;
    void Pass(qint64 milliseconds);
    void TellOfJump() const;

    qint64 m_now;  // ms since 1970 in UTC: the zone may change meanwhile
    qint64 m_tick;
    std::function<void()> m_onJump;
    qint64 m_elapsed = 0;                  // ms since construction, the scale of the timers
    std::vector<VirtualTimer*> m_running;  // in the order in which they were started; owned by their users
};

}  // namespace tickwell
