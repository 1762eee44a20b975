// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

namespace tickwell {

/// What time it is, on the wall and on the machine's counter.
class Clock {
public:
    virtual ~Clock() = default;

    /// Local time in the zone that holds at this moment.
    virtual QDateTime Now() const = 0;

    /// Milliseconds since the machine started, suspend included, cut to signed 32 bits: negative after 24.8
    /// days, positive again after 49.7.
    virtual qint32 Tick() const = 0;
};

}  // namespace tickwell
