// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace tickwell {

/// Runs `body` in a child process and returns its exit code, or -1 if it did not exit normally. Limits and
/// user ids that it changes are not changed in this process.
inline int InChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Gives up root's permissions, so that access can be refused. Call it inside InChild.
inline bool BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

}  // namespace tickwell
