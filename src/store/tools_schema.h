// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <functional>

#include "core/errors.h"
#include "core/kept_timer.h"
#include "store/sqlite_connection.h"

namespace tickwell::store {

/// The file is there, but this program cannot have written what is in it.
class DamagedToolsError : public RunTimeError {
public:
    explicit DamagedToolsError(const QString& reason) : RunTimeError(reason) {}
};

/// The presets of a new file.
QList<TimerPlan> DeliveredPresets();

/// Whether an error of an operation on the file means that the file is damaged.
bool MeansDamage(const RunTimeError& error);

/// Makes the tables of an empty file, with the delivered presets, in one transaction.
void MakeToolsTables(SqliteConnection& connection);

/// Brings a checked file of an earlier version to the form of this one, in one transaction. Nothing is lost.
void RaiseToolsVersion(SqliteConnection& connection);

/// Runs `change` in a transaction; if it throws, nothing is changed.
void InToolsTransaction(SqliteConnection& connection, const std::function<void()>& change);

/// Checks that the file is an undamaged one of this or an earlier version. Throws DamagedToolsError if it is
/// damaged or of another program, and RunTimeError if a newer version made it or it cannot be read now.
void CheckTools(SqliteConnection& connection);

/// Reads timers and presets. Throws DamagedToolsError if a value is out of range.
KeptTimers ReadTools(SqliteConnection& connection);

/// Adds a preset within the caller's transaction.
void InsertPreset(SqliteConnection& connection, const TimerPlan& plan);

}  // namespace tickwell::store
