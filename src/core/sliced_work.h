// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>

namespace tickwell {

/// Work done in slices of a few milliseconds, so that the user interface stays responsive.
class SlicedWork {
public:
    SlicedWork() = default;
    virtual ~SlicedWork() = default;
    SlicedWork(const SlicedWork&) = delete;
    SlicedWork& operator=(const SlicedWork&) = delete;

    /// Does the next slice; true once the work is complete or cancelled. Throws RunTimeError, which ends the
    /// work.
    virtual bool Step() = 0;

    /// Progress, 0 to 1.
    virtual double Part() const = 0;

    /// Cancels the work: Step ends it as soon as it can.
    void GiveUp() { m_isGivenUp = true; }

    /// Whether it was cancelled. Whatever it had stored was rolled back.
    bool IsGivenUp() const { return m_isGivenUp; }

protected:
    /// To be called if the work was complete before the cancellation took effect.
    void IsDoneAllTheSame() { m_isGivenUp = false; }

private:
    std::atomic<bool> m_isGivenUp = false;  // a slice may run on another thread
};

}  // namespace tickwell
