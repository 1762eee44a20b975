// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/kept_alarm.h"
#include "store/sqlite_connection.h"

namespace tickwell::store {

/// The alarms of the file, in the order in which they were added. Throws DamagedToolsError if a value is out
/// of range.
QList<KeptAlarm> ReadAlarms(SqliteConnection& connection);

/// Adds or replaces an alarm within the caller's transaction; a new one, whose id is 0, gets its id.
void WriteAlarm(SqliteConnection& connection, KeptAlarm& alarm);

}  // namespace tickwell::store
