// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "core/errors.h"
#include "core/ports/timer_store.h"

namespace tickwell::timing {

/// A store in memory, which survives the list that uses it, as a file survives the program.
class KeptTimersInMemory : public TimerStore {
public:
    KeptTimers Load() override { return kept; }

    void Save(QList<KeptTimer>& timers) override {
        FailIfFull();
        ++writes;
        for (KeptTimer& timer : timers) {
            if (timer.id == 0) {
                timer.id = ++m_lastId;
            }
            const auto found = std::find_if(kept.timers.begin(), kept.timers.end(),
                                            [&](const KeptTimer& known) { return known.id == timer.id; });
            if (found == kept.timers.end()) {
                kept.timers.append(timer);
            } else {
                *found = timer;
            }
        }
    }

    void Remove(qint64 timer) override {
        FailIfFull();
        kept.timers.removeIf([timer](const KeptTimer& known) { return known.id == timer; });
    }

    qint64 AddPreset(const TimerPlan& plan) override {
        FailIfFull();
        kept.presets.append({.id = ++m_lastId, .plan = plan});
        return m_lastId;
    }

    void RemovePreset(qint64 preset) override {
        FailIfFull();
        kept.presets.removeIf([preset](const TimerPreset& known) { return known.id == preset; });
    }

    KeptTimers kept;
    bool isFull = false;  ///< every change fails
    int writes = 0;

private:
    void FailIfFull() const {
        if (isFull) {
            throw RunTimeError(QStringLiteral("full"));
        }
    }

    qint64 m_lastId = 0;
};

}  // namespace tickwell::timing
