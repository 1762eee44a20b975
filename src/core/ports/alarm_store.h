// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/kept_alarm.h"

namespace tickwell {

/// Keeps alarms. A change is stored when its function returns; after an error nothing of it is. All functions
/// throw RunTimeError.
class AlarmStore {
public:
    virtual ~AlarmStore() = default;

    /// In the order in which they were added.
    virtual QList<KeptAlarm> LoadAlarms() = 0;

    /// Adds or replaces these alarms, all or none of them. One whose id is 0 gets its id.
    virtual void SaveAlarms(QList<KeptAlarm>& alarms) = 0;

    virtual void RemoveAlarm(qint64 alarm) = 0;
};

}  // namespace tickwell
