// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/kept_timer.h"

namespace tickwell {

/// Keeps timers and presets. A change is stored when its function returns; after an error nothing of it is.
/// All functions throw RunTimeError.
class TimerStore {
public:
    virtual ~TimerStore() = default;

    /// In the order in which they were added.
    virtual KeptTimers Load() = 0;

    /// Adds or replaces these timers, all or none of them. One whose id is 0 gets its id.
    virtual void Save(QList<KeptTimer>& timers) = 0;

    virtual void Remove(qint64 timer) = 0;

    /// Returns its id.
    virtual qint64 AddPreset(const TimerPlan& plan) = 0;
    virtual void RemovePreset(qint64 preset) = 0;
};

}  // namespace tickwell
