// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/still_clock.h"

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <ctime>

namespace tickwell {

namespace {

constexpr qint64 kSecond = 1000;                  // ms
constexpr qint64 kNanoseconds = 1'000'000;        // in a millisecond
constexpr qint64 kWallAtStart = 911'131'507'000;  // ms, 15 November 1998

// Starts at ten minutes, because a clock at 0 could be mistaken for one that was never set.
std::atomic<qint64> g_passed{600 * kSecond};  // NOLINT: one clock per process

timespec SpecOf(qint64 milliseconds) {
    return {milliseconds / kSecond, milliseconds % kSecond * kNanoseconds};
}

}  // namespace

void PassOnStillClock(qint64 milliseconds) {
    g_passed += milliseconds;
}

}  // namespace tickwell

// Replaces the C library's function: a definition in the program takes precedence over those in shared
// libraries. The CPU time clocks of processes and threads stay real.
extern "C" int clock_gettime(clockid_t id, timespec* out) noexcept {
    switch (id) {
        case CLOCK_MONOTONIC:
        case CLOCK_MONOTONIC_RAW:
        case CLOCK_MONOTONIC_COARSE:
        case CLOCK_BOOTTIME:
            *out = tickwell::SpecOf(tickwell::g_passed);
            return 0;
        case CLOCK_REALTIME:
        case CLOCK_REALTIME_COARSE:
            *out = tickwell::SpecOf(tickwell::kWallAtStart + tickwell::g_passed);
            return 0;
        default:
            return static_cast<int>(syscall(SYS_clock_gettime, id, out));
    }
}

extern "C" int gettimeofday(timeval* out, void* /*zone*/) noexcept {
    const timespec now = tickwell::SpecOf(tickwell::kWallAtStart + tickwell::g_passed);
    *out = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}
