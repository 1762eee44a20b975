// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/tools_schema.h"

#include <sqlite3.h>

#include <QScopeGuard>
#include <array>

#include "store/log.h"
#include "store/sql_error.h"
#include "store/tools_rows.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kToolsApplicationId = 0x544B5754;  // "TKWT"
constexpr int kToolsVersion = 2;
constexpr int kVersionBeforeAlarms = 1;
constexpr int kToolsPrimaryCode = 0xFF;
constexpr qint32 kPresetMinute = 60'000;  // ms

// In the order in which they were added: an earlier version has only the first ones. The columns of a plan
// have the same position in both tables.
constexpr std::size_t kTablesBeforeAlarms = 2;
constexpr std::array kToolsTables{
    "CREATE TABLE timers(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "milliseconds INTEGER NOT NULL CHECK(milliseconds BETWEEN 1 AND 86399000), next_name TEXT NOT NULL, "
    "next_milliseconds INTEGER NOT NULL CHECK(next_milliseconds BETWEEN 0 AND 86399000), "
    "sound TEXT NOT NULL, phase INTEGER NOT NULL CHECK(phase BETWEEN 0 AND 3), "
    "stage INTEGER NOT NULL CHECK(stage BETWEEN 0 AND 1), ends_at INTEGER NOT NULL, "
    "remaining INTEGER NOT NULL CHECK(remaining BETWEEN 0 AND 86399000), again_at INTEGER NOT NULL) STRICT",
    "CREATE TABLE presets(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "milliseconds INTEGER NOT NULL CHECK(milliseconds BETWEEN 1 AND 86399000), next_name TEXT NOT NULL, "
    "next_milliseconds INTEGER NOT NULL CHECK(next_milliseconds BETWEEN 0 AND 86399000), "
    "sound TEXT NOT NULL) STRICT",
    "CREATE TABLE alarms(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "minute INTEGER NOT NULL CHECK(minute BETWEEN 0 AND 1439), "
    "days INTEGER NOT NULL CHECK(days BETWEEN 0 AND 3), "
    "weekdays INTEGER NOT NULL CHECK(weekdays BETWEEN 0 AND 127), once TEXT NOT NULL, "
    "silent_on_days_off INTEGER NOT NULL CHECK(silent_on_days_off BETWEEN 0 AND 1), skipped TEXT NOT NULL, "
    "is_on INTEGER NOT NULL CHECK(is_on BETWEEN 0 AND 1), sound TEXT NOT NULL, "
    "ring_seconds INTEGER NOT NULL CHECK(ring_seconds BETWEEN 5 AND 600), "
    "snooze_minutes INTEGER NOT NULL CHECK(snooze_minutes BETWEEN 1 AND 30), handled INTEGER NOT NULL, "
    "again_at INTEGER NOT NULL) STRICT"};

bool IsLength(qint64 milliseconds, qint64 least) {
    return milliseconds >= least && milliseconds <= kLongestTimer;
}

TimerPlan PlanOf(const SqliteStatement& row) {
    RequireTools(IsLength(row.Integer(2), 1) && IsLength(row.Integer(4), 0));
    return {.name = row.Text(1),
            .milliseconds = static_cast<qint32>(row.Integer(2)),
            .nextName = row.Text(3),
            .nextMilliseconds = static_cast<qint32>(row.Integer(4)),
            .sound = row.Text(5)};
}

KeptTimer TimerOf(const SqliteStatement& row) {
    const qint64 phase = row.Integer(6);
    const qint64 stage = row.Integer(7);
    const TimerPlan plan = PlanOf(row);
    RequireTools(phase >= 0 && phase <= static_cast<int>(TimerPhase::Ended));
    RequireTools(stage == 0 || (stage == 1 && plan.IsChain()));
    RequireTools(IsLength(row.Integer(9), 0));
    RequireTools(IsToolsMoment(row.Integer(8)) && IsToolsMoment(row.Integer(10)));
    return {.id = row.Integer(0),
            .plan = plan,
            .phase = static_cast<TimerPhase>(phase),
            .stage = static_cast<int>(stage),
            .endsAt = row.Integer(8),
            .remaining = row.Integer(9),
            .againAt = row.Integer(10)};
}

/// SQLite reads what is missing of the last page as zeros.
bool HasWholePages(SqliteConnection& connection) {
    const qint64 pages = connection.FirstValue("PRAGMA page_count").toLongLong();
    return connection.FileSize() == pages * connection.FirstValue("PRAGMA page_size").toLongLong();
}

QString ToolsFormOf(SqliteConnection& connection) {
    return connection.FirstValue(
        "SELECT group_concat(sql, ';') FROM "
        "(SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite_%' ORDER BY rowid)");
}

int ToolsVersionOf(SqliteConnection& connection) {
    return connection.FirstValue("PRAGMA user_version").toInt();
}

QString ToolsFormOfVersion(int version) {
    const std::size_t count = version == kVersionBeforeAlarms ? kTablesBeforeAlarms : kToolsTables.size();
    QStringList tables;
    for (std::size_t i = 0; i < count; ++i) {
        tables.append(QString::fromLatin1(kToolsTables.at(i)));
    }
    return tables.join(u';');
}

}  // namespace

void InToolsTransaction(SqliteConnection& connection, const std::function<void()>& change) {
    connection.Run("BEGIN IMMEDIATE");
    auto rollBack = qScopeGuard([&connection] {
        try {
            if (connection.IsInTransaction()) {
                connection.Run("ROLLBACK");
            }
        } catch (const RunTimeError& error) {
            qCWarning(StoreLog).noquote() << "a change of the timers was not undone:" << error.Detail();
        }
    });
    change();
    connection.Run("COMMIT");
    rollBack.dismiss();
}

QList<TimerPlan> DeliveredPresets() {
    const QString sound = u"TKW00.wav"_s;
    return {{.name = u"カップ麺"_s, .milliseconds = 3 * kPresetMinute, .sound = sound},
            {.name = u"紅茶"_s, .milliseconds = 4 * kPresetMinute, .sound = sound},
            {.name = u"ゆで卵"_s, .milliseconds = 8 * kPresetMinute, .sound = sound},
            {.name = u"集中"_s,
             .milliseconds = 25 * kPresetMinute,
             .nextName = u"休憩"_s,
             .nextMilliseconds = 5 * kPresetMinute,
             .sound = sound}};
}

bool MeansDamage(const RunTimeError& error) {
    if (dynamic_cast<const DamagedToolsError*>(&error) != nullptr ||
        dynamic_cast<const ForeignValueError*>(&error) != nullptr) {
        return true;
    }
    const auto* failure = dynamic_cast<const SqlError*>(&error);
    const int code = failure == nullptr ? SQLITE_OK : failure->SqliteCode() & kToolsPrimaryCode;
    // SQLITE_ERROR: the statements are this program's, so the tables are not.
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB || code == SQLITE_ERROR;
}

void MakeToolsTables(SqliteConnection& connection) {
    InToolsTransaction(connection, [&connection] {
        connection.Run("PRAGMA application_id=" + QByteArray::number(kToolsApplicationId));
        connection.Run("PRAGMA user_version=" + QByteArray::number(kToolsVersion));
        for (const char* table : kToolsTables) {
            connection.Run(table);
        }
        for (const TimerPlan& plan : DeliveredPresets()) {
            InsertPreset(connection, plan);
        }
    });
}

void RaiseToolsVersion(SqliteConnection& connection) {
    if (ToolsVersionOf(connection) == kToolsVersion) {
        return;
    }
    InToolsTransaction(connection, [&connection] {
        if (ToolsVersionOf(connection) == kToolsVersion) {
            return;  // another program was faster
        }
        for (std::size_t i = kTablesBeforeAlarms; i < kToolsTables.size(); ++i) {
            connection.Run(kToolsTables.at(i));
        }
        connection.Run("PRAGMA user_version=" + QByteArray::number(kToolsVersion));
    });
}

void CheckTools(SqliteConnection& connection) {
    if (connection.FirstValue("PRAGMA application_id") != QString::number(kToolsApplicationId)) {
        throw DamagedToolsError(u"ほかのプログラムのデータベースです。"_s);
    }
    const int version = ToolsVersionOf(connection);
    if (version > kToolsVersion) {
        throw RunTimeError(u"新しい版のプログラムで作られたデータベースです。"_s);
    }
    if (version < kVersionBeforeAlarms || connection.FirstValue("PRAGMA encoding") != "UTF-8"_L1 ||
        ToolsFormOf(connection) != ToolsFormOfVersion(version) || !HasWholePages(connection) ||
        connection.FirstValue("PRAGMA integrity_check(1)") != "ok"_L1) {
        throw DamagedToolsError(u"データベースが壊れています。"_s);
    }
}

void RequireTools(bool isTrue) {
    if (!isTrue) {
        throw DamagedToolsError(u"データベースの値が正しくありません。"_s);
    }
}

KeptTimers ReadTools(SqliteConnection& connection) {
    KeptTimers kept;
    ReadToolsRows(
        connection,
        "SELECT id, name, milliseconds, next_name, next_milliseconds, sound, phase, stage, ends_at, "
        "remaining, again_at FROM timers ORDER BY id",
        [&kept](const SqliteStatement& row) { kept.timers.append(TimerOf(row)); });
    ReadToolsRows(
        connection,
        "SELECT id, name, milliseconds, next_name, next_milliseconds, sound FROM presets ORDER BY id",
        [&kept](const SqliteStatement& row) {
            kept.presets.append({.id = row.Integer(0), .plan = PlanOf(row)});
        });
    return kept;
}

void InsertPreset(SqliteConnection& connection, const TimerPlan& plan) {
    SqliteStatement& statement = connection.Prepared(
        "INSERT INTO presets(name, milliseconds, next_name, next_milliseconds, sound) VALUES(?1, ?2, ?3, ?4, "
        "?5)");
    const auto reset = qScopeGuard([&statement] { statement.Reset(); });
    statement.Bind(1, plan.name);
    statement.Bind(2, plan.milliseconds);
    statement.Bind(3, plan.nextName);
    statement.Bind(4, plan.nextMilliseconds);
    statement.Bind(5, plan.sound);
    statement.Step();
}

}  // namespace tickwell::store
