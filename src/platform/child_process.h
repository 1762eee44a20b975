// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QStringList>
#include <optional>
#include <vector>

namespace tickwell {

/// Processes that were ended and are not gone yet: one that hangs in a drive cannot die at once, and nobody
/// waits for it. Whoever has a timer calls Reap now and then.
class ChildReaper {
public:
    ChildReaper() = default;
    ~ChildReaper();
    ChildReaper(const ChildReaper&) = delete;
    ChildReaper& operator=(const ChildReaper&) = delete;

    /// Ends a child of this process by its id.
    void End(pid_t child);
    void Reap();
    bool IsIdle() const { return m_ended.empty(); }

private:
    std::vector<pid_t> m_ended;
};

/// A program that writes to a pipe which is read without ever waiting.
class ChildProcess {
public:
    /// `reaper` outlives this object, whose end is the child's.
    explicit ChildProcess(ChildReaper& reaper) : m_reaper(reaper) {}
    ~ChildProcess() { End(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts `program`, which reads `input` from its standard input, and ends an older child first. Returns
    /// false if it cannot be started.
    bool Start(const QString& program, const QStringList& arguments, const QByteArray& input = {});

    /// Up to `most` bytes of what it has written; empty when there is nothing now or nothing any more.
    QByteArray Read(qsizetype most);

    /// Once it has closed its output, all of that was read, and it has ended: its exit code, -1 where it died
    /// otherwise. Nothing until then.
    std::optional<int> ExitCode();

    /// Whether there is a child that was neither ended nor seen to end.
    bool IsRunning() const { return m_child > 0; }
    void End();

    /// Lets the child go on by itself: from now on it is no child of this object, and nobody reads its
    /// output.
    void LetGo();

private:
    void ClosePipe();

    ChildReaper& m_reaper;
    pid_t m_child = 0;
    int m_pipe = -1;
};

}  // namespace tickwell
