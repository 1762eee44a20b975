// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "core/ports/alarm_store.h"
#include "core/ports/timer_store.h"
#include "core/program_folder.h"
#include "store/sqlite_connection.h"

namespace tickwell::store {

inline constexpr QLatin1StringView kToolsFile("Tools.db");
inline constexpr QLatin1StringView kDamagedToolsFile("Tools.damaged.db");

/// The file of timers and alarms, made at the first use. A damaged one is renamed, and a new one made in its
/// place. The file is opened by the first function that is called, and again after it could not be opened.
/// Errors are thrown as RunTimeError.
class ToolsDatabase : public TimerStore, public AlarmStore {
public:
    /// `damaged` is called after a damaged file was renamed, with its new name.
    ToolsDatabase(ProgramFolder folder, std::function<void(const QString& name)> damaged)
        : m_folder(std::move(folder)), m_damaged(std::move(damaged)) {}

    /// Whether there is a file; without one nothing was ever stored.
    bool Exists() const;

    KeptTimers Load() override;
    void Save(QList<KeptTimer>& timers) override;
    void Remove(qint64 timer) override;
    qint64 AddPreset(const TimerPlan& plan) override;
    void RemovePreset(qint64 preset) override;
    QList<KeptAlarm> LoadAlarms() override;
    void SaveAlarms(QList<KeptAlarm>& alarms) override;
    void RemoveAlarm(qint64 alarm) override;

private:
    SqliteConnection& Open();
    void OpenFile();
    void PutAside();
    void InTransaction(const std::function<void(SqliteConnection& connection)>& change);

    ProgramFolder m_folder;
    std::function<void(const QString& name)> m_damaged;
    std::optional<SqliteConnection> m_connection;
};

}  // namespace tickwell::store
