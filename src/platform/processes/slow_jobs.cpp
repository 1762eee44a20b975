// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/processes/slow_jobs.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace tickwell::platform {

struct SlowJobs::Shared {
    std::mutex mutex;
    std::condition_variable isAtRest;
    std::deque<std::function<void()>> jobs;
    bool isRunning = false;  // the thread exists

    void RunAll() {
        std::unique_lock lock(mutex);
        while (!jobs.empty()) {
            std::function<void()> job = std::exchange(jobs.front(), nullptr);
            jobs.pop_front();
            lock.unlock();
            job();
            job = nullptr;  // destroys what it owns before the notification
            lock.lock();
        }
        isRunning = false;
        isAtRest.notify_all();
    }
};

SlowJobs::SlowJobs(std::chrono::milliseconds patience)
    : m_patience(patience), m_shared(std::make_shared<Shared>()) {}

SlowJobs::~SlowJobs() {
    Wait(m_patience);
}

void SlowJobs::Do(std::function<void()> job) {
    const std::scoped_lock lock(m_shared->mutex);
    m_shared->jobs.push_back(std::move(job));
    if (!m_shared->isRunning) {
        m_shared->isRunning = true;
        std::thread([shared = m_shared] { shared->RunAll(); }).detach();
    }
}

bool SlowJobs::Wait(std::chrono::milliseconds atMost) const {
    std::unique_lock lock(m_shared->mutex);
    return m_shared->isAtRest.wait_for(lock, atMost, [this] { return !m_shared->isRunning; });
}

}  // namespace tickwell::platform
