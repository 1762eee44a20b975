// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tickwell {

/// Does jobs that may take for ever, one after the other on a thread of their own, so that their owner waits
/// for none of them longer than it wants to. The thread lives while there are jobs. What a job works on has
/// to outlive it: let the job own it.
class SlowJobs {
public:
    /// `patience`: how long the end of this object waits at most.
    explicit SlowJobs(std::chrono::milliseconds patience);

    /// Waits for the jobs, as long as the patience lasts. One that hangs is then left to itself.
    ~SlowJobs();
    SlowJobs(const SlowJobs&) = delete;
    SlowJobs& operator=(const SlowJobs&) = delete;

    /// Has a job done after those before it, and does not wait.
    void Do(std::function<void()> job);

    /// Waits until all jobs are done, at most for so long; whether they are.
    bool Wait(std::chrono::milliseconds atMost) const;

private:
    struct Shared;

    std::chrono::milliseconds m_patience;
    std::shared_ptr<Shared> m_shared;  // with the thread, which may outlive this object
};

}  // namespace tickwell
