// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/clock.h"

namespace tickwell::platform {

/// The machine's clocks: local time, and CLOCK_BOOTTIME, which includes suspend.
class SystemClock : public Clock {
public:
    QDateTime Now() const override;
    qint64 SinceBoot() const override;
};

}  // namespace tickwell::platform
