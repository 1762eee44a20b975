// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tickwell::platform {

/// Runs jobs that may block forever, one after the other on a thread of their own, so that the owner decides
/// how long to wait. The thread exists while there are jobs. A job may outlive this object and should own
/// whatever it uses.
class SlowJobs {
public:
    /// `patience`: how long the destructor waits at most.
    explicit SlowJobs(std::chrono::milliseconds patience);

    /// Waits for the jobs up to `patience`. A job that still hangs is abandoned.
    ~SlowJobs();
    SlowJobs(const SlowJobs&) = delete;
    SlowJobs& operator=(const SlowJobs&) = delete;

    /// Queues a job and returns at once.
    void Do(std::function<void()> job);

    /// Waits until all jobs are done, but no longer than `atMost`; returns whether they are done.
    bool Wait(std::chrono::milliseconds atMost) const;

private:
    struct Shared;

    std::chrono::milliseconds m_patience;
    std::shared_ptr<Shared> m_shared;  // shared with the thread, which may outlive this object
};

}  // namespace tickwell::platform
