// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/processes/detached_process.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <vector>

namespace tickwell::platform {

namespace {

constexpr int kReport = STDERR_FILENO + 1;  // descriptor on which a new process reports why it did not start

using Pointers = std::vector<char*>;  // in the form of execve: terminated by a null pointer

Pointers PointersTo(const QByteArrayList& texts) {
    Pointers pointers;
    for (const QByteArray& text : texts) {
        pointers.push_back(const_cast<char*>(text.constData()));  // execve does not modify them
    }
    pointers.push_back(nullptr);
    return pointers;
}

struct Program {
    Pointers words;
    Pointers environment;
    const char* folder = nullptr;
    mode_t mask = 0;
};

// The following functions run between fork and execve. As the program has several threads, they may only make
// async-signal-safe calls and must not allocate memory.

/// Otherwise signals that this process, its parent or a library ignores or blocks would remain so in the
/// program.
void ResetSignals() {
    for (int number = 1; number < NSIG; ++number) {
        std::signal(number, SIG_DFL);  // fails for the few that cannot be changed
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void Fail(int error) {
    [[maybe_unused]] const ssize_t written = write(kReport, &error, sizeof(error));
    _exit(EXIT_FAILURE);
}

[[noreturn]] void Become(const Program& program) {
    if (chdir(program.folder) != 0) {
        Fail(errno);
    }
    umask(program.mask);
    ResetSignals();
    execve(program.words.front(), program.words.data(), program.environment.data());
    Fail(errno);
}

/// The intermediate process of a double fork. It exits at once, so that the program becomes a child of init.
[[noreturn]] void Detach(const Program& program, int report) {
    if (report != kReport && dup2(report, kReport) < 0) {
        _exit(EXIT_FAILURE);
    }
    closefrom(kReport + 1);
    fcntl(kReport, F_SETFD, FD_CLOEXEC);  // fails only for an invalid descriptor
    setsid();                             // cannot fail in a process just forked
    const pid_t child = fork();
    if (child == 0) {
        Become(program);
    }
    if (child < 0) {
        Fail(errno);
    }
    _exit(EXIT_SUCCESS);
}

// End of the functions that run between fork and execve.

/// The errno written to the pipe, or 0 if all its write ends were closed without one. Blocks until then.
int ReportedError(int pipe) {
    int error = 0;
    ssize_t count = 0;
    do {
        count = read(pipe, &error, sizeof(error));
    } while (count < 0 && errno == EINTR);
    return count == 0 ? 0 : count == sizeof(error) ? error : EIO;
}

int EndOf(pid_t child) {
    int status = 0;
    pid_t ended = 0;
    do {
        ended = waitpid(child, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS ? 0 : EIO;
}

}  // namespace

Inheritance Inheritance::OfThisProcess() {
    Inheritance inheritance;
    inheritance.mask = umask(0);  // it can only be read by being set
    umask(inheritance.mask);
    for (char** each = environ; *each != nullptr; ++each) {
        inheritance.environment.append(*each);
    }
    return inheritance;
}

int StartDetached(const QByteArrayList& words, const QByteArray& folder, const Inheritance& inheritance) {
    std::array<int, 2> report{};
    if (pipe2(report.data(), O_CLOEXEC) != 0) {
        return errno;
    }
    const Program program{PointersTo(words), PointersTo(inheritance.environment), folder.constData(),
                          inheritance.mask};
    const pid_t child = fork();
    if (child == 0) {
        Detach(program, report[1]);
    }
    int error = child < 0 ? errno : 0;
    close(report[1]);
    if (child > 0) {
        const int ended = EndOf(child);
        error = ReportedError(report[0]);
        error = error == 0 ? ended : error;
    }
    close(report[0]);
    return error;
}

}  // namespace tickwell::platform
