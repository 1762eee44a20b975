// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "store/full_disk.h"
#include "store/killed_life.h"
#include "store/tools_database.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

constexpr int kKills = 40;
constexpr int kLongestLife = 60'000;   // microseconds
constexpr int kSmallestFile = 16'000;  // bytes; fewer than the file has with the alarms' table

// The tables of the version before the alarms.
constexpr const char* kTimersBefore =
    "CREATE TABLE timers(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "milliseconds INTEGER NOT NULL CHECK(milliseconds BETWEEN 1 AND 86399000), next_name TEXT NOT NULL, "
    "next_milliseconds INTEGER NOT NULL CHECK(next_milliseconds BETWEEN 0 AND 86399000), "
    "sound TEXT NOT NULL, phase INTEGER NOT NULL CHECK(phase BETWEEN 0 AND 3), "
    "stage INTEGER NOT NULL CHECK(stage BETWEEN 0 AND 1), ends_at INTEGER NOT NULL, "
    "remaining INTEGER NOT NULL CHECK(remaining BETWEEN 0 AND 86399000), again_at INTEGER NOT NULL) STRICT";
constexpr const char* kPresetsBefore =
    "CREATE TABLE presets(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "milliseconds INTEGER NOT NULL CHECK(milliseconds BETWEEN 1 AND 86399000), next_name TEXT NOT NULL, "
    "next_milliseconds INTEGER NOT NULL CHECK(next_milliseconds BETWEEN 0 AND 86399000), "
    "sound TEXT NOT NULL) STRICT";

/// The file as that version made it.
const QList<QByteArray> kFileBeforeAlarms{
    "BEGIN IMMEDIATE",
    "PRAGMA application_id=1414223700",
    "PRAGMA user_version=1",
    kTimersBefore,
    kPresetsBefore,
    "INSERT INTO timers VALUES(3, 'パン', 180000, '', 0, 'TKW02.wav', 1, 0, 1795400000123, 0, 0)",
    "INSERT INTO timers VALUES(7, '集中', 1500000, '休憩', 300000, 'TKW00.wav', 2, 1, 0, 90000, 0)",
    "INSERT INTO presets VALUES(5, 'そば', 240000, '', 0, 'TKW00.wav')",
    "COMMIT"};

const KeptAlarm kMorning{.name = u"起床「早い」'; DROP TABLE alarms; --"_s,
                         .time = QTime(6, 59),
                         .days = AlarmDays::Chosen,
                         .weekdays = 127,
                         .silentOnDaysOff = true,
                         .skipped = QDate(2026, 11, 24),
                         .sound = u"/音/鐘 1.wav"_s,
                         .ringSeconds = 600,
                         .snoozeMinutes = 30,
                         .handled = 1'795'400'000'123,
                         .againAt = 1'795'400'300'000};
const KeptAlarm kOnce{.name = u"電車"_s,
                      .time = QTime(0, 0),
                      .days = AlarmDays::Once,
                      .once = QDate(2028, 2, 29),
                      .isOn = false,
                      .sound = u"TKW00.wav"_s,
                      .ringSeconds = 5,
                      .snoozeMinutes = 1,
                      .handled = -257'700'323'029};  // in 1961: the clock was wrong

/// A program folder that holds nothing else.
struct Bench {
    QTemporaryDir directory;
    ProgramFolder folder{directory.path()};
    QStringList damaged;

    std::unique_ptr<ToolsDatabase> Open() {
        return std::make_unique<ToolsDatabase>(folder, [this](const QString& name) { damaged.append(name); });
    }
    QString File() const { return folder.PathOf(u"Tools.db"_s); }

    /// Makes a file with these two alarms.
    QList<KeptAlarm> Fill() {
        QList<KeptAlarm> alarms{kMorning, kOnce};
        Open()->SaveAlarms(alarms);
        return alarms;
    }

    void MakeFileBeforeAlarms() const {
        WriteAll(File(), "");
        SqliteConnection connection(File());
        for (const QByteArray& statement : kFileBeforeAlarms) {
            connection.Run(statement);
        }
    }
};

}  // namespace

/// The alarms in the file of the timers.
class TstToolsAlarms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WhatIsStoredIsRead();
    void ChangesReplaceAndRemove();
    void AFileOfTheVersionBeforeIsRaised();
    void ADamagedFileOfTheVersionBefore();
    void ARaisedFileThatCannotBeWritten();
    void AFailedSaveStoresNothing();
    void DamageAtAnyByte();
    void AValueOutOfRangeIsDamage_data();
    void AValueOutOfRangeIsDamage();
    void AFullDisk();
    void KilledWhileItIsRaised();
    void KilledWhileItStores();
};

void TstToolsAlarms::WhatIsStoredIsRead() {
    Bench bench;
    QVERIFY(bench.Open()->LoadAlarms().isEmpty());
    const QList<KeptAlarm> alarms = bench.Fill();
    QCOMPARE(alarms[0].id, 1);
    QCOMPARE(alarms[1].id, 2);
    KeptAlarm morning = kMorning;
    KeptAlarm once = kOnce;
    morning.id = 1;
    once.id = 2;
    QCOMPARE(bench.Open()->LoadAlarms(), (QList<KeptAlarm>{morning, once}));
    QCOMPARE(bench.Open()->Load().presets.size(), 4);
    QVERIFY(bench.damaged.isEmpty());
}

void TstToolsAlarms::ChangesReplaceAndRemove() {
    Bench bench;
    QList<KeptAlarm> alarms = bench.Fill();
    const auto database = bench.Open();
    alarms[0].time = QTime(23, 59);
    alarms[0].skipped = QDate();
    QList<KeptAlarm> changed{alarms[0]};
    database->SaveAlarms(changed);
    database->RemoveAlarm(2);
    database->RemoveAlarm(99);
    QCOMPARE(bench.Open()->LoadAlarms(), changed);
    QList<KeptAlarm> added{kOnce};
    database->SaveAlarms(added);
    QCOMPARE(added[0].id, 3);  // the id of a removed alarm is not used again
}

void TstToolsAlarms::AFileOfTheVersionBeforeIsRaised() {
    Bench bench;
    bench.MakeFileBeforeAlarms();
    for (int i = 0; i < 2; ++i) {
        const auto database = bench.Open();
        const KeptTimers kept = database->Load();
        QCOMPARE(kept.timers.size(), 2);
        QCOMPARE(kept.timers[0],
                 (KeptTimer{.id = 3,
                            .plan = {.name = u"パン"_s, .milliseconds = 180'000, .sound = u"TKW02.wav"_s},
                            .phase = TimerPhase::Running,
                            .endsAt = 1'795'400'000'123}));
        QCOMPARE(kept.timers[1].id, 7);
        QCOMPARE(kept.timers[1].plan.nextName, u"休憩"_s);
        QCOMPARE(kept.timers[1].stage, 1);
        QCOMPARE(kept.timers[1].remaining, 90'000);
        QCOMPARE(kept.presets.size(), 1);
        QCOMPARE(kept.presets[0].id, 5);
        QCOMPARE(kept.presets[0].plan.name, u"そば"_s);
        QCOMPARE(database->LoadAlarms().size(), i);
        QList<KeptAlarm> added{kMorning};
        database->SaveAlarms(added);
        QList<KeptTimer> timers{{.id = 0, .plan = kept.timers[0].plan}};
        database->Save(timers);
        QCOMPARE(timers[0].id, 8 + i);
        database->Remove(timers[0].id);
    }
    SqliteConnection connection(bench.File());
    QCOMPARE(connection.FirstValue("PRAGMA user_version"), u"2"_s);
    QCOMPARE(connection.FirstValue("PRAGMA application_id"), u"1414223700"_s);
    QVERIFY(bench.damaged.isEmpty());
}

void TstToolsAlarms::ADamagedFileOfTheVersionBefore() {
    for (const char* change : {"DROP TABLE presets", "UPDATE timers SET stage = 1 WHERE id = 3",
                               "CREATE TABLE alarms(id INTEGER PRIMARY KEY)", "PRAGMA user_version = 0"}) {
        Bench bench;
        bench.MakeFileBeforeAlarms();
        SqliteConnection(bench.File()).Run(change);
        QVERIFY(bench.Open()->LoadAlarms().isEmpty());
        QVERIFY2(bench.damaged == QStringList(u"Tools.damaged.db"_s), change);
    }
}

void TstToolsAlarms::ARaisedFileThatCannotBeWritten() {
    Bench bench;
    bench.MakeFileBeforeAlarms();
    {
        const FullDisk full(0);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Open()->LoadAlarms());
    }
    QVERIFY(bench.damaged.isEmpty());
    QCOMPARE(bench.Open()->Load().timers.size(), 2);
    QVERIFY(bench.Open()->LoadAlarms().isEmpty());
}

void TstToolsAlarms::AFailedSaveStoresNothing() {
    Bench bench;
    const QList<KeptAlarm> before = bench.Fill();
    const auto database = bench.Open();
    QList<KeptAlarm> changed = before;
    changed[0].isOn = false;
    changed[1].name = QString(2'000'000, u'x');  // longer than SQLite may store
    QVERIFY_THROWS_EXCEPTION(RunTimeError, database->SaveAlarms(changed));
    QCOMPARE(database->LoadAlarms(), before);
    changed[1].name = u"short"_s;
    changed.append(kMorning);
    database->SaveAlarms(changed);
    QCOMPARE(bench.Open()->LoadAlarms(), changed);
}

void TstToolsAlarms::DamageAtAnyByte() {
    Bench bench;
    bench.Fill();
    const QByteArray sound = ReadAll(bench.File());
    int renamed = 0;
    int tried = 0;
    for (qsizetype at = 100; at < sound.size(); at += 41) {  // the header is that of the timers' file
        QByteArray bytes = sound;
        bytes[at] = static_cast<char>(bytes[at] ^ '\xFF');
        WriteAll(bench.File(), bytes);
        bench.damaged.clear();
        ++tried;
        bench.Open()->LoadAlarms();
        if (!bench.damaged.isEmpty()) {
            ++renamed;
            QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.db"_s));
            QVERIFY(QFile::remove(bench.folder.PathOf(bench.damaged.front())));
            QVERIFY(bench.Open()->LoadAlarms().isEmpty());
        }
    }
    qInfo("%d damaged files, %d of them renamed, the others read", tried, renamed);
    QVERIFY(renamed > 10);
}

void TstToolsAlarms::AValueOutOfRangeIsDamage_data() {
    QTest::addColumn<QByteArray>("change");
    for (const char* change :
         {"minute = -1", "minute = 1440", "days = 4", "weekdays = 128", "once = '2026-02-30' WHERE id = 2",
          "once = '' WHERE id = 2", "once = '2026-12-01' WHERE id = 1", "once = '2026-12-1' WHERE id = 2",
          "silent_on_days_off = 2", "skipped = 'soon'", "is_on = 2", "ring_seconds = 4", "ring_seconds = 601",
          "snooze_minutes = 0", "snooze_minutes = 31", "handled = -9223372036854775808",
          "again_at = 1 << 62"}) {
        QTest::newRow(change) << "UPDATE alarms SET " + QByteArray(change);
    }
    QTest::newRow("a table that is missing") << QByteArray("DROP TABLE alarms");
}

void TstToolsAlarms::AValueOutOfRangeIsDamage() {
    QFETCH(QByteArray, change);
    Bench bench;
    bench.Fill();
    {
        SqliteConnection connection(bench.File());
        connection.Run("PRAGMA ignore_check_constraints = 1");
        connection.Run(change);
    }
    QVERIFY(bench.Open()->LoadAlarms().isEmpty());
    QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.db"_s));
}

void TstToolsAlarms::AFullDisk() {
    Bench bench;
    const QList<KeptAlarm> before = bench.Fill();
    const auto database = bench.Open();
    database->LoadAlarms();
    {
        const FullDisk full(0);
        QList<KeptAlarm> alarms{kMorning};
        QVERIFY_THROWS_EXCEPTION(RunTimeError, database->SaveAlarms(alarms));
        QCOMPARE(alarms[0].id, 0);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, database->RemoveAlarm(1));
        QCOMPARE(database->LoadAlarms(), before);
    }
    database->RemoveAlarm(1);
    QCOMPARE(bench.Open()->LoadAlarms(), before.mid(1));

    Bench empty;
    {
        const FullDisk full(kSmallestFile);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, empty.Open()->LoadAlarms());
    }
    QVERIFY(empty.Open()->LoadAlarms().isEmpty());
    QVERIFY(empty.damaged.isEmpty() && bench.damaged.isEmpty());
}

void TstToolsAlarms::KilledWhileItIsRaised() {
    int raised = 0;
    for (int i = 0; i < kKills; ++i) {
        Bench bench;
        bench.MakeFileBeforeAlarms();
        LastOf(kLongestLife, [&bench](int) { bench.Open()->LoadAlarms(); });
        raised += SqliteConnection(bench.File()).FirstValue("PRAGMA user_version") == u"2" ? 1 : 0;
        const auto database = bench.Open();
        QVERIFY(database->LoadAlarms().isEmpty());
        QCOMPARE(database->Load().timers.size(), 2);
        QCOMPARE(database->Load().presets.size(), 1);
        QVERIFY(bench.damaged.isEmpty());
    }
    qInfo("%d kills, %d of them after the version was raised", kKills, raised);
}

void TstToolsAlarms::KilledWhileItStores() {
    Bench bench;
    bench.Fill();
    int stored = 0;
    for (int i = 0; i < kKills; ++i) {
        const qint64 last = LastOf(kLongestLife, [&bench](int out) {
            const auto database = bench.Open();
            QList<KeptAlarm> alarms = database->LoadAlarms();
            for (qint64 number = alarms[1].handled + 1;; ++number) {  // both in each change
                for (KeptAlarm& alarm : alarms) {
                    alarm.handled = number;
                }
                database->SaveAlarms(alarms);
                if (write(out, &number, sizeof number) != sizeof number) {
                    _exit(1);
                }
            }
        });
        const QList<KeptAlarm> alarms = bench.Open()->LoadAlarms();
        QCOMPARE(alarms.size(), 2);
        if (last >= 0) {
            ++stored;
            QVERIFY(alarms[1].handled == last || alarms[1].handled == last + 1);
            QCOMPARE(alarms[0].handled, alarms[1].handled);
        }
    }
    QVERIFY(bench.damaged.isEmpty());
    qInfo("%d kills, %d of them after a change was stored", kKills, stored);
}

QTEST_GUILESS_MAIN(TstToolsAlarms)
#include "tst_tools_alarms.moc"
