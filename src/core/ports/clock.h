// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

namespace tickwell {

/// Wall-clock time and the machine's tick counter.
class Clock {
public:
    virtual ~Clock() = default;

    /// Local time in the current time zone.
    virtual QDateTime Now() const = 0;

    /// Milliseconds since boot, including suspend. Never goes back and never wraps.
    virtual qint64 SinceBoot() const = 0;

    /// SinceBoot truncated to signed 32 bits: negative after 24.8 days, positive again after 49.7.
    qint32 Tick() const { return static_cast<qint32>(static_cast<quint32>(SinceBoot())); }
};

}  // namespace tickwell
