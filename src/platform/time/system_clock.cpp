// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time/system_clock.h"

#include <ctime>

namespace tickwell::platform {

QDateTime SystemClock::Now() const {
    return QDateTime::currentDateTime();
}

qint64 SystemClock::SinceBoot() const {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);  // cannot fail: the clock exists since Linux 2.6.39
    return qint64{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

}  // namespace tickwell::platform
