// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "store/full_disk.h"
#include "store/killed_life.h"
#include "store/store_disk.h"
#include "store/tools_database.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

constexpr int kKills = 40;
constexpr int kLongestLife = 60'000;   // microseconds
constexpr int kSmallestFile = 10'000;  // bytes; more pages than one table needs

constexpr qint64 kIn1961 = -257'700'323'029;  // ms; the end of a timer while the clock was wrong
const TimerPlan kTea{.name = u"紅茶「濃い」'; DROP TABLE timers; --"_s,
                     .milliseconds = 86'399'000,
                     .sound = u"/音/鐘 1.wav"_s};

/// A program folder that holds nothing else.
struct Bench {
    QTemporaryDir directory;
    ProgramFolder folder{directory.path()};
    QStringList damaged;

    std::unique_ptr<ToolsDatabase> Open() {
        return std::make_unique<ToolsDatabase>(folder, [this](const QString& name) { damaged.append(name); });
    }
    QString File() const { return folder.PathOf(u"Tools.db"_s); }
    QStringList Files() const { return QDir(directory.path()).entryList(QDir::Files | QDir::Hidden); }

    /// Makes a file with three timers.
    void Fill() {
        QList<KeptTimer> timers{
            {.id = 0, .plan = kTea, .phase = TimerPhase::Running, .endsAt = kIn1961},
            {.id = 0, .plan = kTea, .phase = TimerPhase::Paused, .remaining = 86'399'000},
            {.id = 0,
             .plan = {.name = u"集中"_s, .milliseconds = 1, .nextName = u"休憩"_s, .nextMilliseconds = 1},
             .phase = TimerPhase::Running,
             .stage = 1,
             .endsAt = 1'795'400'000'000,
             .againAt = 1'795'400'300'000}};
        Open()->Save(timers);
    }
};

}  // namespace

/// The file of the timers.
class TstToolsDatabase : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ANewFileHasThePresets();
    void WhatIsStoredIsRead();
    void ChangesReplaceAndRemove();
    void PresetsAreDeliveredOnce();
    void AFailedSaveStoresNothing();
    void OnlyTheOwnerCanReadIt();
    void DamageAtAnyByte();
    void ATruncatedFile();
    void AnEarlierDamagedFileIsKept();
    void TheJournalOfADamagedFileGoesWithIt();
    void AFileOfANewerVersionIsLeftAlone();
    void AFileThatCannotBeReadIsNotDamaged();
    void AValueOutOfRangeIsDamage_data();
    void AValueOutOfRangeIsDamage();
    void AFullDisk();
    void KilledWhileItIsMade();
    void KilledWhileItStores();
};

void TstToolsDatabase::ANewFileHasThePresets() {
    Bench bench;
    const auto database = bench.Open();
    QVERIFY(!database->Exists());
    const KeptTimers kept = database->Load();
    QVERIFY(database->Exists());
    QVERIFY(kept.timers.isEmpty());
    QCOMPARE(kept.presets.size(), 4);
    const QList<std::pair<QString, int>> expected{
        {u"カップ麺"_s, 3}, {u"紅茶"_s, 4}, {u"ゆで卵"_s, 8}, {u"集中"_s, 25}};
    for (qsizetype i = 0; i < 4; ++i) {
        QCOMPARE(kept.presets[i].plan.name, expected[i].first);
        QCOMPARE(kept.presets[i].plan.milliseconds, expected[i].second * 60'000);
        QCOMPARE(kept.presets[i].plan.IsChain(), i == 3);
    }
    QCOMPARE(kept.presets[3].plan.nextName, u"休憩"_s);
    QCOMPARE(kept.presets[3].plan.nextMilliseconds, 300'000);
}

void TstToolsDatabase::WhatIsStoredIsRead() {
    Bench bench;
    bench.Fill();
    const KeptTimers kept = bench.Open()->Load();
    QCOMPARE(kept.timers.size(), 3);
    QCOMPARE(kept.timers[0],
             (KeptTimer{.id = 1, .plan = kTea, .phase = TimerPhase::Running, .endsAt = kIn1961}));
    QCOMPARE(kept.timers[1].remaining, 86'399'000);
    QCOMPARE(kept.timers[1].phase, TimerPhase::Paused);
    QCOMPARE(kept.timers[2].stage, 1);
    QCOMPARE(kept.timers[2].againAt, 1'795'400'300'000);
    QCOMPARE(kept.timers[2].plan.nextName, u"休憩"_s);
    QVERIFY(bench.damaged.isEmpty());
}

void TstToolsDatabase::ChangesReplaceAndRemove() {
    Bench bench;
    bench.Fill();
    const auto database = bench.Open();
    QList<KeptTimer> changed{database->Load().timers[1]};
    changed[0].phase = TimerPhase::Ended;
    changed[0].remaining = 0;
    database->Save(changed);
    database->Remove(1);
    database->Remove(99);
    const KeptTimers kept = bench.Open()->Load();
    QCOMPARE(kept.timers.size(), 2);
    QCOMPARE(kept.timers[0], changed[0]);
    QCOMPARE(kept.timers[0].id, 2);
    QList<KeptTimer> added{{.id = 0, .plan = kTea}};
    database->Remove(3);
    database->Save(added);
    QCOMPARE(added[0].id, 4);  // the id of a removed timer is not used again
}

void TstToolsDatabase::PresetsAreDeliveredOnce() {
    Bench bench;
    const auto database = bench.Open();
    for (const TimerPreset& preset : database->Load().presets) {
        database->RemovePreset(preset.id);
    }
    const qint64 own = database->AddPreset(kTea);
    const KeptTimers kept = bench.Open()->Load();
    QCOMPARE(kept.presets, (QList<TimerPreset>{{.id = own, .plan = kTea}}));
}

void TstToolsDatabase::AFailedSaveStoresNothing() {
    Bench bench;
    bench.Fill();
    const auto database = bench.Open();
    const QList<KeptTimer> before = database->Load().timers;
    QList<KeptTimer> changed = before;
    changed[0].phase = TimerPhase::Ended;
    changed[2].plan.name = QString(2'000'000, u'x');  // longer than SQLite may store
    QVERIFY_THROWS_EXCEPTION(RunTimeError, database->Save(changed));
    QCOMPARE(database->Load().timers, before);
    changed[2].plan.name = u"short"_s;
    database->Save(changed);
    QCOMPARE(bench.Open()->Load().timers, changed);
}

void TstToolsDatabase::OnlyTheOwnerCanReadIt() {
    Bench bench;
    bench.Fill();
    struct stat status {};
    QCOMPARE(stat(bench.File().toLocal8Bit().constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, 0600U);
}

void TstToolsDatabase::DamageAtAnyByte() {
    Bench bench;
    bench.Fill();
    const QByteArray sound = ReadAll(bench.File());
    int renamed = 0;
    int tried = 0;
    // Every byte of the header and of the schema's beginning, then every 37th.
    for (qsizetype at = 0; at < sound.size(); at += at < 200 ? 1 : 37) {
        for (const char flip : {'\x01', '\xFF'}) {
            QByteArray bytes = sound;
            bytes[at] = static_cast<char>(bytes[at] ^ flip);
            WriteAll(bench.File(), bytes);
            bench.damaged.clear();
            ++tried;
            bool isRefused = false;
            try {
                bench.Open()->Load();
            } catch (const RunTimeError& error) {  // only the version can say that it is a newer one
                isRefused = true;
                QVERIFY2(at >= 60 && at < 64, qPrintable(u"byte %1: %2"_s.arg(at).arg(error.Detail())));
            }
            if (!bench.damaged.isEmpty()) {
                ++renamed;
                QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.db"_s));
                const QString aside = bench.folder.PathOf(bench.damaged.front());
                QCOMPARE(ReadAll(aside).size(), bytes.size());
                QVERIFY(QFile::remove(aside));
                QCOMPARE(bench.Open()->Load().presets.size(), 4);
            }
            QVERIFY(!isRefused || bench.damaged.isEmpty());
        }
    }
    qInfo("%d damaged files, %d of them renamed, the others read", tried, renamed);
    QVERIFY(renamed > 100);
}

void TstToolsDatabase::ATruncatedFile() {
    Bench bench;
    bench.Fill();
    const QByteArray sound = ReadAll(bench.File());
    for (qsizetype size = 2; size < sound.size(); size += 511) {
        WriteAll(bench.File(), sound.first(size));
        bench.damaged.clear();
        QCOMPARE(bench.Open()->Load().presets.size(), 4);
        QVERIFY2(bench.damaged.size() == 1, qPrintable(u"%1 of %2 bytes"_s.arg(size).arg(sound.size())));
        QVERIFY(QFile::remove(bench.folder.PathOf(bench.damaged.front())));
    }
}

void TstToolsDatabase::AnEarlierDamagedFileIsKept() {
    Bench bench;
    WriteAll(bench.folder.PathOf(u"Tools.damaged.db"_s), "earlier");
    WriteAll(bench.File(), QByteArray(5000, 'x'));
    bench.Open()->Load();
    QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.2.db"_s));
    QCOMPARE(ReadAll(bench.folder.PathOf(u"Tools.damaged.db"_s)), "earlier");
    QCOMPARE(ReadAll(bench.folder.PathOf(u"Tools.damaged.2.db"_s)), QByteArray(5000, 'x'));
}

void TstToolsDatabase::TheJournalOfADamagedFileGoesWithIt() {
    Bench bench;
    WriteAll(bench.File(), QByteArray(5000, 'x'));
    WriteAll(bench.File() + u"-journal", "journal");
    bench.Open()->Load();
    QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.db"_s));
    QVERIFY(!QFileInfo::exists(bench.File() + u"-journal"));
    QCOMPARE(bench.Open()->Load().presets.size(), 4);
}

void TstToolsDatabase::AFileOfANewerVersionIsLeftAlone() {
    Bench bench;
    bench.Fill();
    QByteArray bytes = ReadAll(bench.File());
    bytes[63] = '\x03';  // the last byte of user_version in the header
    WriteAll(bench.File(), bytes);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Open()->Load());
    QVERIFY(bench.damaged.isEmpty());
    QCOMPARE(ReadAll(bench.File()), bytes);
}

void TstToolsDatabase::AFileThatCannotBeReadIsNotDamaged() {
    Bench bench;
    QVERIFY(QDir(bench.directory.path()).mkdir(u"Tools.db"_s));
    const auto database = bench.Open();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, database->Load());
    QVERIFY(bench.damaged.isEmpty());
    QVERIFY(QDir(bench.directory.path()).rmdir(u"Tools.db"_s));
    QCOMPARE(database->Load().presets.size(), 4);  // the next use tries again
}

void TstToolsDatabase::AValueOutOfRangeIsDamage_data() {
    QTest::addColumn<QByteArray>("change");
    QTest::newRow("a length of zero") << QByteArray("UPDATE timers SET milliseconds = 0 WHERE id = 2");
    QTest::newRow("a length over a day")
        << QByteArray("UPDATE presets SET milliseconds = 86400000 WHERE id = 2");
    QTest::newRow("an unknown state") << QByteArray("UPDATE timers SET phase = 4 WHERE id = 1");
    QTest::newRow("a stage without a chain") << QByteArray("UPDATE timers SET stage = 1 WHERE id = 1");
    QTest::newRow("a time before all")
        << QByteArray("UPDATE timers SET ends_at = -9223372036854775808 WHERE id = 1");
    QTest::newRow("a time without end") << QByteArray("UPDATE timers SET again_at = 1 << 62 WHERE id = 1");
    QTest::newRow("a table that is missing") << QByteArray("DROP TABLE presets");
    QTest::newRow("another program's file") << QByteArray("PRAGMA application_id = 1");
}

void TstToolsDatabase::AValueOutOfRangeIsDamage() {
    QFETCH(QByteArray, change);
    Bench bench;
    bench.Fill();
    SqliteConnection(bench.File()).Run(change);
    QVERIFY(bench.Open()->Load().timers.isEmpty());
    QCOMPARE(bench.damaged, QStringList(u"Tools.damaged.db"_s));
}

void TstToolsDatabase::AFullDisk() {
    Bench bench;
    bench.Fill();
    const auto database = bench.Open();
    const KeptTimers before = database->Load();
    {
        const FullDisk full(0);
        QList<KeptTimer> timers{{.id = 0, .plan = kTea}};
        QVERIFY_THROWS_EXCEPTION(RunTimeError, database->Save(timers));
        QVERIFY_THROWS_EXCEPTION(RunTimeError, database->Remove(1));
        QVERIFY_THROWS_EXCEPTION(RunTimeError, database->AddPreset(kTea));
        QCOMPARE(database->Load().timers, before.timers);
    }
    QVERIFY(bench.damaged.isEmpty());
    database->Remove(1);
    QCOMPARE(bench.Open()->Load().timers.size(), 2);

    Bench empty;
    {
        const FullDisk full(kSmallestFile);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, empty.Open()->Load());
    }
    QCOMPARE(empty.Open()->Load().presets.size(), 4);
    QVERIFY(empty.damaged.isEmpty());
}

void TstToolsDatabase::KilledWhileItIsMade() {
    for (int i = 0; i < kKills; ++i) {
        Bench bench;
        LastOf(kLongestLife, [&bench](int) { bench.Open()->Load(); });
        QCOMPARE(bench.Open()->Load().presets.size(), 4);
        QVERIFY(bench.damaged.isEmpty());
    }
}

void TstToolsDatabase::KilledWhileItStores() {
    Bench bench;
    bench.Fill();
    qint64 stored = 0;
    for (int i = 0; i < kKills; ++i) {
        const qint64 last = LastOf(kLongestLife, [&bench](int out) {
            const auto database = bench.Open();
            QList<KeptTimer> timers = database->Load().timers;
            for (qint64 number = timers[0].againAt + 1;; ++number) {  // all three in each change
                for (KeptTimer& timer : timers) {
                    timer.againAt = number;
                }
                database->Save(timers);
                if (write(out, &number, sizeof number) != sizeof number) {
                    _exit(1);
                }
            }
        });
        const QList<KeptTimer> timers = bench.Open()->Load().timers;
        QCOMPARE(timers.size(), 3);
        if (last >= 0) {
            ++stored;
            QVERIFY(timers[0].againAt == last || timers[0].againAt == last + 1);
            QCOMPARE(timers[1].againAt, timers[0].againAt);
            QCOMPARE(timers[2].againAt, timers[0].againAt);
        }
    }
    QVERIFY(bench.damaged.isEmpty());
    qInfo("%d kills, %lld of them after a change was stored", kKills, static_cast<long long>(stored));
}

QTEST_GUILESS_MAIN(TstToolsDatabase)
#include "tst_tools_database.moc"
