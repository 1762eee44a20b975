// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>

namespace tickwell {

/// Work that is done in slices of some milliseconds, so that the windows answer meanwhile.
class SlicedWork {
public:
    SlicedWork() = default;
    virtual ~SlicedWork() = default;
    SlicedWork(const SlicedWork&) = delete;
    SlicedWork& operator=(const SlicedWork&) = delete;

    /// Does the next slice; true once all is done, or the work has been given up. Throws RunTimeError; the
    /// work is then over.
    virtual bool Step() = 0;

    /// How far it is, 0 to 1.
    virtual double Part() const = 0;

    /// Has Step end the work before it is done, as soon as it can.
    void GiveUp() { m_isGivenUp = true; }

    /// Whether it was ended so. What was stored meanwhile has been taken back.
    bool IsGivenUp() const { return m_isGivenUp; }

protected:
    /// It was asked for too late.
    void IsDoneAllTheSame() { m_isGivenUp = false; }

private:
    std::atomic<bool> m_isGivenUp = false;  // a slice may run on another thread
};

}  // namespace tickwell
