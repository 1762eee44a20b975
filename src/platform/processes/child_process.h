// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QStringList>
#include <chrono>
#include <optional>
#include <vector>

namespace tickwell::platform {

/// Child processes that were killed or told to end, and have not exited yet: one that is blocked by a drive
/// cannot exit at once, and no caller waits for it. The owner calls Reap from a timer.
class ChildReaper {
public:
    ChildReaper() = default;
    ~ChildReaper();
    ChildReaper(const ChildReaper&) = delete;
    ChildReaper& operator=(const ChildReaper&) = delete;

    /// Kills a child of this process.
    void End(pid_t child);

    /// Takes a child that is about to exit.
    void Take(pid_t child);
    void Reap();
    bool IsIdle() const { return m_ended.empty(); }

private:
    std::vector<pid_t> m_ended;
};

/// A child process whose standard output is read through a pipe without blocking.
class ChildProcess {
public:
    /// `reaper` outlives this object. The destructor kills the child.
    explicit ChildProcess(ChildReaper& reaper) : m_reaper(reaper) {}
    ~ChildProcess() { End(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts `program` with `input` as its standard input, and kills an older child first. Returns false if
    /// it cannot be started.
    bool Start(const QString& program, const QStringList& arguments, const QByteArray& input = {});

    /// The same with an open file as its standard input; the caller keeps the descriptor.
    bool Start(const QString& program, const QStringList& arguments, int input);

    /// Waits until it has written something or has ended, but no longer than `atMost`.
    void WaitForOutput(std::chrono::milliseconds atMost) const;

    /// Up to `most` bytes of its output; empty if there is none yet or no more.
    QByteArray Read(qsizetype most);

    /// Its exit code, or -1 if a signal ended it, once it has exited and all its output was read. nullopt
    /// until then.
    std::optional<int> ExitCode();

    /// Whether a child was started and has neither been killed nor seen to exit.
    bool IsRunning() const { return m_child > 0; }
    void End();

    /// Detaches from the child, which keeps running; its output is no longer read.
    void LetGo();

    /// Closes the pipe, and leaves the child to end by itself because of that.
    void Leave();

private:
    void ClosePipe();

    ChildReaper& m_reaper;
    pid_t m_child = 0;
    int m_pipe = -1;
};

}  // namespace tickwell::platform
