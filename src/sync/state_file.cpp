// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/state_file.h"

#include <QRandomGenerator>
#include <QScopeGuard>
#include <array>
#include <cerrno>
#include <functional>
#include <utility>

#include "core/regular_file.h"
#include "store/store_disk.h"
#include "store/tools_rows.h"
#include "store/tools_schema.h"
#include "sync/day_row.h"
#include "sync/log.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStateApplicationId = 0x544B5753;  // "TKWS"
constexpr int kStateVersion = 1;
constexpr unsigned kOwnersFile = 0600;
constexpr std::array kCompanions{""_L1, "-journal"_L1, "-wal"_L1, "-shm"_L1};

constexpr QLatin1StringView kStateTables(
    "CREATE TABLE known(name TEXT PRIMARY KEY, value TEXT NOT NULL) STRICT;"
    "CREATE TABLE elements(row TEXT NOT NULL, copy INTEGER NOT NULL, milliseconds INTEGER NOT NULL, "
    "counter INTEGER NOT NULL, replica INTEGER NOT NULL, present INTEGER NOT NULL, "
    "PRIMARY KEY(row, copy)) STRICT, WITHOUT ROWID");

constexpr QLatin1StringView kReplicaName("replica");
constexpr QLatin1StringView kBookFileName("book");
constexpr QLatin1StringView kWrittenAsName("written");

/// Runs `change` in a transaction; if it throws, nothing is changed.
void InStateTransaction(store::SqliteConnection& connection, const std::function<void()>& change) {
    connection.Run("BEGIN IMMEDIATE");
    auto rollBack = qScopeGuard([&connection] {
        try {
            if (connection.IsInTransaction()) {
                connection.Run("ROLLBACK");
            }
        } catch (const RunTimeError& error) {
            qCWarning(SyncLog).noquote() << "the state was not rolled back:" << error.Detail();
        }
    });
    change();
    connection.Run("COMMIT");
    rollBack.dismiss();
}

void SetKnown(store::SqliteConnection& connection, const QByteArray& schema, const QString& name,
              const QString& value) {
    if (value.isEmpty()) {
        return;
    }
    store::SqliteStatement& statement =
        connection.Prepared("INSERT OR REPLACE INTO \"" + schema + "\".known(name, value) VALUES(?1, ?2)");
    const auto reset = qScopeGuard([&statement] { statement.Reset(); });
    statement.Bind(1, name);
    statement.Bind(2, value);
    statement.Step();
}

/// A replica is never 0, so that a file of zeros has none.
quint64 NewReplica() {
    quint64 replica = 0;
    while (replica == 0) {
        replica = QRandomGenerator::global()->generate64();
    }
    return replica;
}

void MakeState(store::SqliteConnection& connection) {
    InStateTransaction(connection, [&connection] {
        connection.Run("PRAGMA application_id=" + QByteArray::number(kStateApplicationId));
        connection.Run("PRAGMA user_version=" + QByteArray::number(kStateVersion));
        for (const QString& table : QString(kStateTables).split(u';')) {
            connection.Run(table.toLatin1());
        }
        SetKnown(connection, "main", kReplicaName, QString::number(NewReplica()));
    });
}

void CheckState(store::SqliteConnection& connection) {
    if (connection.FirstValue("PRAGMA application_id") != QString::number(kStateApplicationId)) {
        throw store::DamagedToolsError(u"ほかのプログラムのデータベースです。"_s);
    }
    if (connection.FirstValue("PRAGMA user_version").toInt() > kStateVersion) {
        throw RunTimeError(u"新しい版のプログラムで作られたデータベースです。"_s);
    }
    const QString form = connection.FirstValue(
        "SELECT group_concat(sql, ';') FROM "
        "(SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY rowid)");
    if (form != kStateTables || connection.FirstValue("PRAGMA encoding") != "UTF-8"_L1 ||
        connection.FirstValue("PRAGMA integrity_check(1)") != "ok"_L1) {
        throw store::DamagedToolsError(u"データベースが壊れています。"_s);
    }
}

std::unique_ptr<store::SqliteConnection> OpenFile(const QString& path) {
    if (!EntryExists(path)) {
        try {
            store::PosixStoreDisk().Create(path, kOwnersFile, {});
        } catch (const store::DiskError& error) {
            if (error.Code() != EEXIST) {
                throw;
            }
        }
    }
    auto connection = std::make_unique<store::SqliteConnection>(path);
    if (connection->FileSize() == 0) {  // also after a start that was killed
        MakeState(*connection);
    }
    CheckState(*connection);
    return connection;
}

/// Renames the file together with its journal, which would otherwise be played back into a new one. Returns
/// the new path, at which there was no file before.
QString PutAside(const QString& path) {
    const QString stem = path.chopped(3);  // without ".db"
    QString aside = stem + ".damaged.db"_L1;
    for (int number = 2; EntryExists(aside); ++number) {
        aside = stem + u".damaged.%1.db"_s.arg(number);
    }
    store::PosixStoreDisk disk;
    for (const QLatin1StringView companion : kCompanions) {
        if (EntryExists(path + companion)) {
            store::RenameSafely(disk, path + companion, aside + companion);
        }
    }
    return aside;
}

Element ElementOf(const store::SqliteStatement& row) {
    Element element{
        row.Bytes(0).toByteArray(),
        static_cast<quint32>(row.Integer(1)),
        {row.Integer(2), static_cast<quint32>(row.Integer(3)), static_cast<quint64>(row.Integer(4))},
        row.Integer(5) != 0};
    store::RequireTools(row.Integer(1) >= 1 && row.Integer(1) <= kMostCopies);
    store::RequireTools(element.stamp.milliseconds >= 0 && element.stamp.milliseconds <= kLastMoment + 1);
    store::RequireTools(DecodeRow(element.row).has_value());
    return element;
}

}  // namespace

std::unique_ptr<store::SqliteConnection> OpenState(const QString& path, QStringList& damaged) {
    try {
        std::unique_ptr<store::SqliteConnection> connection = OpenFile(path);
        ReadState(*connection);
        return connection;
    } catch (const RunTimeError& error) {
        if (!store::MeansDamage(error)) {
            throw;
        }
        qCWarning(SyncLog).noquote() << "the state is damaged:" << error.Detail();
    }
    damaged.append(PutAside(path));
    return OpenFile(path);
}

KeptState ReadState(store::SqliteConnection& connection) {
    KeptState kept;
    const auto known = [&connection](QLatin1StringView name) {
        return connection.FirstValue("SELECT value FROM known WHERE name = '" + QByteArray(name.data()) +
                                     '\'');
    };
    kept.replica = known(kReplicaName).toULongLong();
    store::RequireTools(kept.replica != 0);
    kept.bookFile = known(kBookFileName);
    kept.writtenAs = known(kWrittenAsName);
    store::SqliteStatement& rows = connection.Prepared(
        "SELECT row, copy, milliseconds, counter, replica, present FROM elements ORDER BY row, copy");
    const auto reset = qScopeGuard([&rows] { rows.Reset(); });
    while (rows.Step()) {
        kept.state.push_back(ElementOf(rows));
    }
    return kept;
}

void WriteState(store::SqliteConnection& connection, const QByteArray& schema, const KeptChanges& changes) {
    SetKnown(connection, schema, kBookFileName, changes.bookFile);
    SetKnown(connection, schema, kWrittenAsName, changes.writtenAs);
    store::SqliteStatement& statement =
        connection.Prepared("INSERT OR REPLACE INTO \"" + schema +
                            "\".elements(row, copy, milliseconds, counter, replica, present) "
                            "VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
    for (const Element& each : changes.elements) {
        const auto reset = qScopeGuard([&statement] { statement.Reset(); });
        statement.BindBytes(1, each.row);
        statement.Bind(2, qint64{each.copy});
        statement.Bind(3, each.stamp.milliseconds);
        statement.Bind(4, qint64{each.stamp.counter});
        statement.Bind(5, static_cast<qint64>(each.stamp.replica));
        statement.Bind(6, qint32{each.isPresent ? 1 : 0});
        statement.Step();
    }
}

void StoreState(store::SqliteConnection& connection, const KeptChanges& changes) {
    if (!changes.IsEmpty()) {
        InStateTransaction(connection, [&] { WriteState(connection, "main", changes); });
    }
}

}  // namespace tickwell::sync
