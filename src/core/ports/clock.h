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

    /// Milliseconds since boot, including suspend, truncated to signed 32 bits: negative after 24.8 days,
    /// positive again after 49.7.
    virtual qint32 Tick() const = 0;
};

}  // namespace tickwell
