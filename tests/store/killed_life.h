// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <array>
#include <csignal>
#include <ctime>
#include <functional>

namespace tickwell::store {

/// Lets the kernel kill this process after that many microseconds.
inline void DieIn(int microseconds) {
    constexpr int kNanoseconds = 1000;
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec time{{0, 0}, {0, microseconds * kNanoseconds + 1}};
    if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 || timer_settime(timer, 0, &time, nullptr) != 0) {
        _exit(2);
    }
}

/// Runs `life` in a process that is killed after a random time; returns the last number that it has written
/// to the descriptor that it is given, or -1.
inline qint64 LastOf(int longest, const std::function<void(int out)>& life) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        qFatal("pipe");
    }
    const int microseconds = QRandomGenerator::global()->bounded(longest);
    const pid_t child = fork();
    if (child == 0) {
        DieIn(microseconds);
        life(ends[1]);
        _exit(0);
    }
    close(ends[1]);
    waitpid(child, nullptr, 0);
    qint64 last = -1;
    qint64 number = 0;
    while (read(ends[0], &number, sizeof number) == sizeof number) {
        last = number;
    }
    close(ends[0]);
    return last;
}

}  // namespace tickwell::store
