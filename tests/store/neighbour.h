// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QString>
#include <array>
#include <functional>

namespace tickwell {

/// Runs `story` in a process of its own, and gives back what it returned. As "nobody" where the test runs as
/// root, whom no permission stops.
QString ToldByNobody(const std::function<QString()>& story);

/// Another process that does two things when it is told to. It is to be made before this process opens the
/// database: the engine's locks are kept per process and do not survive a fork.
class Neighbour {
public:
    Neighbour(std::function<void()> first, std::function<void()> second);
    ~Neighbour();
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    /// Each waits until it is done. Throws std::runtime_error where the process is gone.
    void DoFirst() { DoNext(); }
    void DoSecond() { DoNext(); }

private:
    void DoNext();

    std::array<int, 2> m_orders{};
    std::array<int, 2> m_answers{};
    pid_t m_process = -1;
};

}  // namespace tickwell
