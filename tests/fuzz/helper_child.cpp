// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/helper_child.h"

#include <dlfcn.h>
#include <sanitizer/asan_interface.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <string_view>
#include <vector>

#include "cd_helper/protocol.h"
#include "fuzz/counters.h"
#include "fuzz/fuzz_check.h"

// The helper's main, renamed by a compile definition.
int HelperMain(int argc, char** argv);

namespace tickwell {

namespace {

constexpr int kEndFault = 77;        // the helper's own code crashed in the child
constexpr int kEndLibrary = 78;      // the library crashed
constexpr unsigned kPatience = 200;  // s of real time, after which the child counts as hanging

char* g_shared = nullptr;  // the child's counters, in shared memory

void HandOver() {
    std::memcpy(g_shared, Counters().data(), Counters().size());
}

/// Signal handler. A crash inside the library that reads images is allowed; any other one is a fault.
void Fallen(int /*signal*/, siginfo_t* /*info*/, void* context) {
    HandOver();
    const auto place = static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RIP];
    Dl_info found{};
    const bool isKnown = dladdr(reinterpret_cast<void*>(place), &found) != 0 && found.dli_fname != nullptr;
    _exit(isKnown && std::strstr(found.dli_fname, "libcdio") != nullptr ? kEndLibrary : kEndFault);
}

/// The same distinction for errors that the sanitizer reports in functions called by the library.
void Reported(const char* report) {
    std::string_view rest(report);
    for (std::size_t frame = rest.find("\n    #"); frame != std::string_view::npos;
         frame = rest.find("\n    #")) {
        rest = rest.substr(frame + 1);
        const std::string_view line = rest.substr(0, rest.find('\n'));
        if (line.find("__interceptor_") != std::string_view::npos) {
            continue;
        }
        if (line.find("libcdio") != std::string_view::npos) {
            HandOver();
            _exit(kEndLibrary);
        }
        return;
    }
}

void CatchFalls() {
    __asan_set_error_report_callback(Reported);
    struct sigaction action {};
    action.sa_sigaction = Fallen;
    action.sa_flags = SA_SIGINFO;
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) {
        sigaction(signal, &action, nullptr);
    }
    for (const int signal : {SIGABRT, SIGALRM}) {  // a violated requirement or a hang
        std::signal(signal, SIG_DFL);
    }
}

QByteArray Contents(int file) {
    QByteArray bytes(static_cast<qsizetype>(lseek(file, 0, SEEK_END)), '\0');
    Require(pread(file, bytes.data(), static_cast<std::size_t>(bytes.size()), 0) == bytes.size(),
            "memory can be read");
    return bytes;
}

}  // namespace

HelperChild::HelperChild() : m_output(memfd_create("helper-output", MFD_CLOEXEC)) {
    void* shared =
        mmap(nullptr, Counters().size(), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    Require(m_output >= 0 && shared != MAP_FAILED, "there is memory");
    g_shared = static_cast<char*>(shared);
}

HelperChild::~HelperChild() {
    close(m_output);
}

std::optional<QByteArray> HelperChild::Run(const QList<QByteArray>& words) {
    Require(ftruncate(m_output, 0) == 0 && lseek(m_output, 0, SEEK_SET) == 0, "memory can be emptied");
    const pid_t child = fork();
    if (child == 0) {
        BeChild(words);
    }
    int status = 0;
    pid_t ended = 0;
    do {
        ended = waitpid(child, &status, 0);
    } while (ended < 0 && errno == EINTR);  // interrupted by the fuzzer's timer
    Require(ended == child, "there is a child");
    std::memcpy(Counters().data(), g_shared, Counters().size());
    const int end = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const bool isOutOfTime = WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
    if (end == cd_helper::kEndGone || end == kEndLibrary || isOutOfTime) {
        return std::nullopt;
    }
    Require(end == cd_helper::kEndDone, "the helper exits by itself, without a sanitizer report");
    return Contents(m_output);
}

void HelperChild::BeChild(const QList<QByteArray>& words) const {
    CatchFalls();
    __sanitizer_set_death_callback(HandOver);  // instead of the fuzzer's, which reports a crash
    const rlimit quick{1, 2};                  // s of CPU time, shorter than the helper's own limit
    setrlimit(RLIMIT_CPU, &quick);
    alarm(kPatience);
    dup2(m_output, STDOUT_FILENO);
    QList<QByteArray> all{"tickwell-cd"};
    all += words;
    std::vector<char*> pointers;
    for (QByteArray& word : all) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const int end = HelperMain(static_cast<int>(all.size()), pointers.data());
    HandOver();
    _exit(end);
}

}  // namespace tickwell

// The library allocates as much memory as an image claims, and handles a failed allocation.
extern "C" const char*
__asan_default_options() {  // NOLINT(bugprone-reserved-identifier): the sanitizer's name
    return "allocator_may_return_null=1:detect_leaks=0";
}

// The linker replaces _Exit with this function.
extern "C" void __wrap__Exit(int code) {  // NOLINT(bugprone-reserved-identifier): the linker's name
    if (tickwell::g_shared != nullptr) {
        tickwell::HandOver();
    }
    _exit(code);
}
