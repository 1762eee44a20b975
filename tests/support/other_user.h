// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace tickwell {

/// Runs `body` in a child process and gives its exit code, -1 where it did not end by itself. What it does to
/// its own limits and rights ends with it.
inline int InChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Turns this process into one that rights are refused to; root is refused nothing. For use inside InChild.
inline bool BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

}  // namespace tickwell
