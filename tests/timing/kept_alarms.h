// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "core/errors.h"
#include "core/ports/alarm_store.h"

namespace tickwell::timing {

/// A store in memory, which survives the list that uses it, as a file survives the program.
class KeptAlarmsInMemory : public AlarmStore {
public:
    QList<KeptAlarm> LoadAlarms() override { return kept; }

    void SaveAlarms(QList<KeptAlarm>& alarms) override {
        FailIfFull();
        ++writes;
        for (KeptAlarm& alarm : alarms) {
            if (alarm.id == 0) {
                alarm.id = ++m_lastId;
            }
            const auto found = std::find_if(kept.begin(), kept.end(),
                                            [&](const KeptAlarm& known) { return known.id == alarm.id; });
            if (found == kept.end()) {
                kept.append(alarm);
            } else {
                *found = alarm;
            }
        }
    }

    void RemoveAlarm(qint64 alarm) override {
        FailIfFull();
        kept.removeIf([alarm](const KeptAlarm& known) { return known.id == alarm; });
    }

    QList<KeptAlarm> kept;
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
