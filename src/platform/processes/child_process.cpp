// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/processes/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
#include <sys/pidfd.h>  // does not declare extern "C" itself
}

#include <QDeadlineTimer>
#include <QFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

namespace tickwell::platform {

namespace {

constexpr int kLastPatience = 200;  // ms for killed children that have not ended yet when the program ends
constexpr int kMostAtOnce = 65536;  // bytes, the capacity of a pipe

/// A memfd that contains `bytes`, positioned at its start; negative on failure. Unlike a pipe, it accepts any
/// number of bytes even if the child does not read.
int FileOf(const QByteArray& bytes) {
    const int file = memfd_create("input", MFD_CLOEXEC);
    qsizetype written = 0;
    while (file >= 0 && written < bytes.size()) {
        const ssize_t count =
            write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        written += count;
    }
    if (file >= 0 && (written < bytes.size() || lseek(file, 0, SEEK_SET) != 0)) {
        close(file);
        return -1;
    }
    return file;
}

/// The descriptors of a child: `input` and `output` as its standard streams, standard error, and no others.
class Actions {
public:
    Actions(int input, int output) {
        m_isGood = posix_spawn_file_actions_init(&m_actions) == 0;
        m_isGood = m_isGood && posix_spawn_file_actions_adddup2(&m_actions, input, STDIN_FILENO) == 0 &&
                   posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO) == 0 &&
                   posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1) == 0;
    }
    ~Actions() { posix_spawn_file_actions_destroy(&m_actions); }
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;

    bool IsGood() const { return m_isGood; }
    const posix_spawn_file_actions_t* Get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
    bool m_isGood = false;
};

/// Default signal handling, whatever this program or its libraries have changed.
class Attributes {
public:
    Attributes() {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        m_isGood =
            posix_spawnattr_init(&m_attributes) == 0 &&
            posix_spawnattr_setsigmask(&m_attributes, &none) == 0 &&
            posix_spawnattr_setsigdefault(&m_attributes, &all) == 0 &&
            posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF) == 0;
    }
    ~Attributes() { posix_spawnattr_destroy(&m_attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    bool IsGood() const { return m_isGood; }
    const posix_spawnattr_t* Get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
    bool m_isGood = false;
};

/// The process id of the child; 0 if it could not be started.
pid_t Spawn(const QList<QByteArray>& words, int input, int output) {
    const Actions actions(input, output);
    const Attributes attributes;
    std::vector<char*> pointers;
    for (const QByteArray& word : words) {
        pointers.push_back(const_cast<char*>(word.constData()));  // posix_spawn does not modify them
    }
    pointers.push_back(nullptr);
    pid_t child = 0;
    const bool started =
        actions.IsGood() && attributes.IsGood() &&
        posix_spawn(&child, pointers.front(), actions.Get(), attributes.Get(), pointers.data(), environ) == 0;
    return started ? child : 0;
}

}  // namespace

ChildReaper::~ChildReaper() {
    for (const pid_t child : m_ended) {
        if (const int descriptor = pidfd_open(child, 0); descriptor >= 0) {
            pollfd ended{descriptor, POLLIN, 0};
            poll(&ended, 1, kLastPatience);
            close(descriptor);
        }
    }
    Reap();
}

void ChildReaper::End(pid_t child) {
    kill(child, SIGKILL);
    Take(child);
}

void ChildReaper::Take(pid_t child) {
    m_ended.push_back(child);
    Reap();
}

void ChildReaper::Reap() {
    const auto isGone = [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; };
    m_ended.erase(std::remove_if(m_ended.begin(), m_ended.end(), isGone), m_ended.end());
}

bool ChildProcess::Start(const QString& program, const QStringList& arguments, const QByteArray& input) {
    const int file = FileOf(input);
    if (file < 0) {
        End();
        return false;
    }
    const bool hasStarted = Start(program, arguments, file);
    close(file);
    return hasStarted;
}

bool ChildProcess::Start(const QString& program, const QStringList& arguments, int input) {
    End();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    QList<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments) {
        words.append(QFile::encodeName(argument));
    }
    m_child = Spawn(words, input, ends[1]);
    close(ends[1]);
    m_pipe = ends[0];
    if (m_child == 0 || fcntl(m_pipe, F_SETFL, O_NONBLOCK) != 0) {
        End();
        return false;
    }
    return true;
}

void ChildProcess::WaitForOutput(std::chrono::milliseconds atMost) const {
    pollfd output{m_pipe, POLLIN, 0};
    const QDeadlineTimer end(atMost);
    while (poll(&output, 1, static_cast<int>(end.remainingTime())) < 0 && errno == EINTR) {
    }
}

QByteArray ChildProcess::Read(qsizetype most) {
    QByteArray bytes;
    while (m_pipe >= 0 && bytes.size() < most) {
        const qsizetype before = bytes.size();
        const qsizetype wanted = std::min<qsizetype>(kMostAtOnce, most - before);
        bytes.resize(before + wanted);
        const ssize_t count = read(m_pipe, bytes.data() + before, static_cast<std::size_t>(wanted));
        const int error = errno;
        bytes.resize(before + std::max<ssize_t>(0, count));
        if (count < 0 && error == EINTR) {
            continue;
        }
        if (count < 0 && error == EAGAIN) {
            break;
        }
        if (count <= 0) {
            ClosePipe();
        }
    }
    return bytes;
}

std::optional<int> ChildProcess::ExitCode() {
    if (m_child == 0 || m_pipe >= 0) {
        return std::nullopt;
    }
    int status = 0;
    const pid_t ended = waitpid(m_child, &status, WNOHANG);
    if (ended == 0) {
        return std::nullopt;
    }
    const bool hasCode = ended == m_child && WIFEXITED(status);
    m_child = 0;
    return hasCode ? WEXITSTATUS(status) : -1;
}

void ChildProcess::End() {
    ClosePipe();
    if (m_child > 0) {
        m_reaper.End(m_child);
        m_child = 0;
    }
}

void ChildProcess::Leave() {
    ClosePipe();
    if (m_child > 0) {
        m_reaper.Take(m_child);
        m_child = 0;
    }
}

void ChildProcess::LetGo() {
    ClosePipe();
    m_child = 0;
}

void ChildProcess::ClosePipe() {
    if (m_pipe >= 0) {
        close(m_pipe);
        m_pipe = -1;
    }
}

}  // namespace tickwell::platform
