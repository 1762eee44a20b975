// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/clock.h"

namespace tickwell {

/// The machine's own clocks: local time, and CLOCK_BOOTTIME for the tick, which goes on while the machine
/// sleeps.
class SystemClock : public Clock {
public:
    QDateTime Now() const override;
    qint32 Tick() const override;
};

}  // namespace tickwell
