// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/tools_schema.h"

#include <sqlite3.h>

#include <QScopeGuard>
#include <array>

#include "store/sql_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kToolsApplicationId = 0x544B5754;  // "TKWT"
constexpr int kToolsVersion = 1;
constexpr int kToolsPrimaryCode = 0xFF;
constexpr qint32 kPresetMinute = 60'000;  // ms

// The columns of a plan have the same position in both tables.
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
    "sound TEXT NOT NULL) STRICT"};

void RequireTools(bool isTrue) {
    if (!isTrue) {
        throw DamagedToolsError(u"データベースの値が正しくありません。"_s);
    }
}

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
    constexpr qint64 kEndOfTime = 253'402'300'800'000;  // the year 10000
    for (const int column : {8, 10}) {
        // Before 1970 they are negative.
        RequireTools(row.Integer(column) > -kEndOfTime && row.Integer(column) < kEndOfTime);
    }
    return {.id = row.Integer(0),
            .plan = plan,
            .phase = static_cast<TimerPhase>(phase),
            .stage = static_cast<int>(stage),
            .endsAt = row.Integer(8),
            .remaining = row.Integer(9),
            .againAt = row.Integer(10)};
}

template <typename Row>
void ReadToolsRows(SqliteConnection& connection, const QByteArray& sql, Row row) {
    SqliteStatement& statement = connection.Prepared(sql);
    const auto reset = qScopeGuard([&statement] { statement.Reset(); });
    while (statement.Step()) {
        row(statement);
    }
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

}  // namespace

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
    connection.Run("BEGIN IMMEDIATE");
    auto rollBack = qScopeGuard([&connection] {
        if (connection.IsInTransaction()) {
            connection.Run("ROLLBACK");
        }
    });
    connection.Run("PRAGMA application_id=" + QByteArray::number(kToolsApplicationId));
    connection.Run("PRAGMA user_version=" + QByteArray::number(kToolsVersion));
    for (const char* table : kToolsTables) {
        connection.Run(table);
    }
    for (const TimerPlan& plan : DeliveredPresets()) {
        InsertPreset(connection, plan);
    }
    connection.Run("COMMIT");
    rollBack.dismiss();
}

void CheckTools(SqliteConnection& connection) {
    if (connection.FirstValue("PRAGMA application_id") != QString::number(kToolsApplicationId)) {
        throw DamagedToolsError(u"ほかのプログラムのデータベースです。"_s);
    }
    const int version = connection.FirstValue("PRAGMA user_version").toInt();
    if (version > kToolsVersion) {
        throw RunTimeError(u"新しい版のプログラムで作られたデータベースです。"_s);
    }
    QStringList tables;
    for (const char* table : kToolsTables) {
        tables.append(QString::fromLatin1(table));
    }
    if (version != kToolsVersion || connection.FirstValue("PRAGMA encoding") != "UTF-8"_L1 ||
        ToolsFormOf(connection) != tables.join(u';') || !HasWholePages(connection) ||
        connection.FirstValue("PRAGMA integrity_check(1)") != "ok"_L1) {
        throw DamagedToolsError(u"データベースが壊れています。"_s);
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
