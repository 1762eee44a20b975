// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QString>
#include <array>
#include <functional>

namespace tickwell::store {

/// Runs `story` in a separate process and returns its result. If the test runs as root, which ignores file
/// permissions, the process runs as "nobody".
QString ToldByNobody(const std::function<QString()>& story);

/// Another process that performs two actions on request. Create it before this process opens the database:
/// SQLite's locks belong to a process and do not survive a fork.
class Neighbour {
public:
    Neighbour(std::function<void()> first, std::function<void()> second);
    ~Neighbour();
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    /// Each waits until its action is finished. Throws std::runtime_error if the process has ended.
    void DoFirst() { DoNext(); }
    void DoSecond() { DoNext(); }

private:
    void DoNext();

    std::array<int, 2> m_orders{};
    std::array<int, 2> m_answers{};
    pid_t m_process = -1;
};

}  // namespace tickwell::store
