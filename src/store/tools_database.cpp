// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/tools_database.h"

#include <QScopeGuard>
#include <array>
#include <cerrno>

#include "core/regular_file.h"
#include "store/alarm_rows.h"
#include "store/log.h"
#include "store/store_disk.h"
#include "store/tools_schema.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned kOwnersFile = 0600;
constexpr std::array kCompanions{""_L1, "-journal"_L1, "-wal"_L1, "-shm"_L1};

/// A name of which no file has been put aside yet: an earlier damaged file is not overwritten.
QString FreeName(const ProgramFolder& folder) {
    QString name = kDamagedToolsFile;
    for (int number = 2; EntryExists(folder.PathOf(name)); ++number) {
        name = u"Tools.damaged.%1.db"_s.arg(number);
    }
    return name;
}

void BindTimer(SqliteStatement& statement, const KeptTimer& timer) {
    statement.Bind(1, timer.id);
    statement.Bind(2, timer.plan.name);
    statement.Bind(3, timer.plan.milliseconds);
    statement.Bind(4, timer.plan.nextName);
    statement.Bind(5, timer.plan.nextMilliseconds);
    statement.Bind(6, timer.plan.sound);
    statement.Bind(7, static_cast<qint32>(timer.phase));
    statement.Bind(8, qint32{timer.stage});
    statement.Bind(9, timer.endsAt);
    statement.Bind(10, timer.remaining);
    statement.Bind(11, timer.againAt);
}

qint64 LastToolsId(SqliteConnection& connection) {
    return connection.FirstValue("SELECT last_insert_rowid()").toLongLong();
}

}  // namespace

bool ToolsDatabase::Exists() const {
    return EntryExists(m_folder.PathOf(kToolsFile));
}

void ToolsDatabase::OpenFile() {
    const QString path = m_folder.PathOf(kToolsFile);
    if (!EntryExists(path)) {
        try {
            PosixStoreDisk().Create(path, kOwnersFile, {});
        } catch (const DiskError& error) {
            if (error.Code() != EEXIST) {  // otherwise another program was faster
                throw;
            }
        }
    }
    m_connection.emplace(path);
    // A start that was killed leaves an empty file.
    if (m_connection->FileSize() == 0) {
        MakeToolsTables(*m_connection);
    }
    CheckTools(*m_connection);
    RaiseToolsVersion(*m_connection);
    ReadTools(*m_connection);
    ReadAlarms(*m_connection);
}

/// The file's journal belongs to it: beside a new file it would be played back into that.
void ToolsDatabase::PutAside() {
    m_connection.reset();
    PosixStoreDisk disk;
    const QString name = FreeName(m_folder);
    for (const QLatin1StringView companion : kCompanions) {
        const QString path = m_folder.PathOf(kToolsFile) + companion;
        if (EntryExists(path)) {
            RenameSafely(disk, path, m_folder.PathOf(name) + companion);
        }
    }
    m_damaged(name);
}

SqliteConnection& ToolsDatabase::Open() {
    if (m_connection) {
        return *m_connection;
    }
    auto close = qScopeGuard([this] { m_connection.reset(); });
    try {
        OpenFile();
    } catch (const RunTimeError& error) {
        if (!MeansDamage(error)) {
            throw;
        }
        qCWarning(StoreLog).noquote() << "the timers' database is damaged:" << error.Detail();
        PutAside();
        OpenFile();
    }
    close.dismiss();
    return *m_connection;
}

void ToolsDatabase::InTransaction(const std::function<void(SqliteConnection& connection)>& change) {
    SqliteConnection& connection = Open();
    InToolsTransaction(connection, [&change, &connection] { change(connection); });
}

KeptTimers ToolsDatabase::Load() {
    return ReadTools(Open());
}

void ToolsDatabase::Save(QList<KeptTimer>& timers) {
    QList<KeptTimer> saved = timers;
    InTransaction([&saved](SqliteConnection& connection) {
        for (KeptTimer& timer : saved) {
            SqliteStatement& statement = connection.Prepared(
                "INSERT OR REPLACE INTO timers(id, name, milliseconds, next_name, next_milliseconds, sound, "
                "phase, "
                "stage, ends_at, remaining, again_at) VALUES(NULLIF(?1, 0), ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, "
                "?10, ?11)");
            const auto reset = qScopeGuard([&statement] { statement.Reset(); });
            BindTimer(statement, timer);
            statement.Step();
            if (timer.id == 0) {
                timer.id = LastToolsId(connection);
            }
        }
    });
    timers = saved;
}

void ToolsDatabase::Remove(qint64 timer) {
    InTransaction([timer](SqliteConnection& connection) {
        connection.Run("DELETE FROM timers WHERE id=" + QByteArray::number(timer));
    });
}

qint64 ToolsDatabase::AddPreset(const TimerPlan& plan) {
    qint64 id = 0;
    InTransaction([&](SqliteConnection& connection) {
        InsertPreset(connection, plan);
        id = LastToolsId(connection);
    });
    return id;
}

void ToolsDatabase::RemovePreset(qint64 preset) {
    InTransaction([preset](SqliteConnection& connection) {
        connection.Run("DELETE FROM presets WHERE id=" + QByteArray::number(preset));
    });
}

QList<KeptAlarm> ToolsDatabase::LoadAlarms() {
    return ReadAlarms(Open());
}

void ToolsDatabase::SaveAlarms(QList<KeptAlarm>& alarms) {
    QList<KeptAlarm> saved = alarms;
    InTransaction([&saved](SqliteConnection& connection) {
        for (KeptAlarm& alarm : saved) {
            WriteAlarm(connection, alarm);
        }
    });
    alarms = saved;
}

void ToolsDatabase::RemoveAlarm(qint64 alarm) {
    InTransaction([alarm](SqliteConnection& connection) {
        connection.Run("DELETE FROM alarms WHERE id=" + QByteArray::number(alarm));
    });
}

}  // namespace tickwell::store
