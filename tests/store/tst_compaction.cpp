// SPDX-License-Identifier: GPL-3.0-or-later
#include <sqlite3.h>
#include <sys/stat.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

#include "store/compaction_case.h"
#include "store/compaction_report.h"
#include "store/neighbour.h"
#include "store/sql_error.h"
#include "store/store_faults.h"
#include "store/watched_disk.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

void Require(bool holds, const char* what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

/// Requires that a program which ignores the lock file can neither read nor write the database.
void RequireShutOut(const QString& path, const char* sql) {
    bool isIn = true;
    try {
        RawConnection(path).Run(sql);
    } catch (const std::runtime_error&) {
        isIn = false;
    }
    Require(!isIn, sql);
}

QStringList Structure(const LooseStore& store) {
    return store.Raw(
        "PRAGMA application_id; PRAGMA user_version; PRAGMA journal_mode; PRAGMA encoding;"
        "SELECT type, name, sql FROM sqlite_schema ORDER BY name");
}

}  // namespace

/// The compaction of the day database.
class TstCompaction : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void MakesTheFileSmallerAndKeepsEveryRow();
    void ReportsNoGainTheSecondTime();
    void StepsHaveThisOrder();
    void RenamesAreSyncedBeforeAndAfter();
    void EntersTheFolderFirst();
    void AStaleTargetIsReplaced_data();
    void AStaleTargetIsReplaced();
    void KeepsThePermissions_data();
    void KeepsThePermissions();
    void ReopensTheDatabase();
    void CanBeStopped();
    void NobodyElseCanOpenTheFileMeanwhile();
    void AnotherProgramWithTheOldFileOpenFailsAtItsNextWrite();
    void FailsUntouchedWhileAnotherProcessHoldsTheFile_data();
    void FailsUntouchedWhileAnotherProcessHoldsTheFile();
};

void TstCompaction::MakesTheFileSmallerAndKeepsEveryRow() {
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    const QStringList structure = Structure(bench.store);
    QVERIFY(rows.size() > 100);
    const auto before = static_cast<qint32>(QFileInfo(bench.store.Path()).size());
    QCOMPARE(bench.Fault(), QString());
    const auto after = static_cast<qint32>(QFileInfo(bench.store.Path()).size());
    QVERIFY2(after < before / 2, qPrintable(QString::number(after)));
    QCOMPARE(bench.boxes.Shown(), QList<Message>{CompactionDone(before, after)});
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QCOMPARE(bench.store.Rows(), rows);
    QCOMPARE(Structure(bench.store), structure);
    bench.handle.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
    QCOMPARE(bench.store.Rows().size(), rows.size() + 1);
}

void TstCompaction::ReportsNoGainTheSecondTime() {
    CompactionCase bench;
    bench.Fault();
    QCOMPARE(bench.Fault(), QString());
    const auto size = static_cast<qint32>(QFileInfo(bench.store.Path()).size());
    QCOMPARE(bench.boxes.Shown().constLast(), CompactionDone(size, size));
}

void TstCompaction::StepsHaveThisOrder() {
    CompactionCase bench;
    WatchedDisk disk([](int, bool) {});
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(disk.Steps(),
             QStringList({u"size DayDate.mdb"_s, u"remove BUDate.mdb"_s, u"remove BUDate.mdb-journal"_s,
                          u"remove BUDate.mdb-wal"_s, u"remove BUDate.mdb-shm"_s, u"remove CopyDate.mdb"_s,
                          u"remove CopyDate.mdb-journal"_s, u"remove CopyDate.mdb-wal"_s,
                          u"remove CopyDate.mdb-shm"_s, u"copy CopyDate.mdb"_s, u"compact BUDate.mdb"_s,
                          u"rename BUDate.mdb"_s, u"remove CopyDate.mdb"_s, u"size DayDate.mdb"_s}));
}

void TstCompaction::RenamesAreSyncedBeforeAndAfter() {
    class SyncedDisk : public PosixStoreDisk {
    public:
        void Rename(const QString& from, const QString& to) override {
            steps.append(u"rename "_s + from + u" to " + to);
        }
        void Sync(const QString& path) override { steps.append(u"sync "_s + path); }

        QStringList steps;
    };
    SyncedDisk disk;
    RenameSafely(disk, u"/a/new"_s, u"/a/live"_s);
    QCOMPARE(disk.steps, (QStringList{u"sync /a"_s, u"rename /a/new to /a/live"_s, u"sync /a"_s}));
}

void TstCompaction::EntersTheFolderFirst() {
    CompactionCase bench;
    QVERIFY(QDir::setCurrent(u"/"_s));
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    QCOMPARE(QDir::current().canonicalPath(), QDir(bench.store.Folder()).canonicalPath());
    try {
        BeginCompaction(bench.handle, ProgramFolder(u"/no/such/folder"_s));
        QFAIL("compacted nowhere");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"/no/such/folder"_s);
    }
    QVERIFY(bench.handle.IsOpen());
}

void TstCompaction::AStaleTargetIsReplaced_data() {
    QTest::addColumn<QStringList>("names");
    QTest::newRow("target") << QStringList({u"BUDate.mdb"_s});
    QTest::newRow("target and its journal") << QStringList({u"BUDate.mdb"_s, u"BUDate.mdb-journal"_s});
    QTest::newRow("only the journal") << QStringList({u"BUDate.mdb-journal"_s});
    QTest::newRow("copy") << QStringList({u"CopyDate.mdb"_s});
    QTest::newRow("all") << QStringList({u"BUDate.mdb"_s, u"BUDate.mdb-journal"_s, u"BUDate.mdb-wal"_s,
                                         u"CopyDate.mdb"_s, u"CopyDate.mdb-journal"_s});
}

void TstCompaction::AStaleTargetIsReplaced() {
    QFETCH(QStringList, names);
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    // A real journal of another state of the file: rolling it back would destroy the new file.
    QByteArray journal;
    {
        RawConnection stranger(bench.store.Path());
        stranger.Run("PRAGMA cache_size = 1; BEGIN; UPDATE Kinenbi SET Week = Week + 11");
        journal = BytesOf(bench.store.PathOf(u"DayDate.mdb-journal"_s));
    }
    QVERIFY(journal.size() > 512);
    for (const QString& name : names) {
        SetBytes(bench.store.PathOf(name),
                 name.endsWith(u"-journal") ? journal : BytesOf(bench.store.Path()).chopped(100));
    }
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompaction::KeepsThePermissions_data() {
    QTest::addColumn<mode_t>("mode");
    for (const mode_t mode : {0600U, 0640U, 0644U, 0666U}) {
        QTest::addRow("%o", mode) << mode;
    }
}

void TstCompaction::KeepsThePermissions() {
    QFETCH(mode_t, mode);
    CompactionCase bench;
    const auto modeOf = [&bench](const QString& name) {
        struct stat state {};
        return stat(qPrintable(bench.store.PathOf(name)), &state) == 0 ? state.st_mode & 0777U : 0U;
    };
    QCOMPARE(chmod(qPrintable(bench.store.Path()), mode), 0);
    mode_t copy = 0;
    mode_t target = 0;
    WatchedDisk disk([&](int step, bool isDone) {
        if (step == 11 && isDone) {
            copy = modeOf(u"CopyDate.mdb"_s);
            target = modeOf(u"BUDate.mdb"_s);
        }
    });
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(copy, mode);
    QCOMPARE(target, mode);
    QCOMPARE(modeOf(u"DayDate.mdb"_s), mode);
}

void TstCompaction::ReopensTheDatabase() {
    CompactionCase bench(false);
    QCOMPARE(bench.Fault(), QString());
    QVERIFY(bench.handle.IsOpen());
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstCompaction::CanBeStopped() {
    CompactionCase bench;
    const QByteArray before = BytesOf(bench.store.Path());
    std::stop_source stop;
    stop.request_stop();
    PosixStoreDisk disk(stop.get_token());
    QCOMPARE(bench.Fault(disk).section(u'\r', 0, 0), u"CopyDate.mdb"_s);
    QCOMPARE(BytesOf(bench.store.Path()), before);
    QCOMPARE(bench.store.Names(), NamesAtRest());
    // Statements are also interrupted while they run, from any thread.
    SqliteConnection connection(bench.store.Path());
    connection.StopWith(stop.get_token());
    try {
        connection.Run("SELECT count(*) FROM Kinenbi a, Kinenbi b, Kinenbi c");
        QFAIL("not stopped");
    } catch (const SqlError& error) {
        QCOMPARE(error.SqliteCode(), SQLITE_INTERRUPT);
    }
}

void TstCompaction::NobodyElseCanOpenTheFileMeanwhile() {
    CompactionCase bench(false);
    const QString path = bench.store.Path();
    Neighbour neighbour(
        [&] {
            RequireShutOut(path, "SELECT count(*) FROM Kinenbi");
            RequireShutOut(path, "DELETE FROM Kinenbi");
            Require(!OpeningFault(path).isEmpty(), "another program got in");
        },
        [&] { Require(OpeningFault(path).isEmpty(), "another program is kept out"); });
    const QStringList rows = bench.store.Rows();
    WatchedDisk disk([&](int step, bool isDone) {
        if (step == 11 && isDone) {
            neighbour.DoFirst();
        }
    });
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    neighbour.DoSecond();
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompaction::AnotherProgramWithTheOldFileOpenFailsAtItsNextWrite() {
    CompactionCase bench(false);
    const QByteArray insert = R"(INSERT INTO Holiday("Date") VALUES ('2026-10-09'))";
    std::unique_ptr<RawConnection> stranger;
    Neighbour neighbour(
        [&] {
            stranger = std::make_unique<RawConnection>(bench.store.Path());
            stranger->Run(insert);
        },
        [&] {
            bool isWritten = true;
            try {
                stranger->Run(insert);
            } catch (const std::runtime_error&) {
                isWritten = false;
            }
            Require(!isWritten, "a row went into the old file");
        });
    neighbour.DoFirst();
    const QStringList rows = bench.store.Rows();
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    neighbour.DoSecond();
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompaction::FailsUntouchedWhileAnotherProcessHoldsTheFile_data() {
    QTest::addColumn<QByteArray>("sql");
    QTest::newRow("another program of ours") << QByteArray();
    QTest::newRow("a reader") << QByteArray("BEGIN; SELECT count(*) FROM Kinenbi");
    QTest::newRow("a writer") << QByteArray("BEGIN IMMEDIATE");
}

void TstCompaction::FailsUntouchedWhileAnotherProcessHoldsTheFile() {
    QFETCH(QByteArray, sql);
    CompactionCase bench(false);
    DayDatabase other;
    std::unique_ptr<RawConnection> stranger;
    Neighbour neighbour(
        [&] {
            if (sql.isEmpty()) {
                other = DayDatabase(bench.store.Path());
            } else {
                stranger = std::make_unique<RawConnection>(bench.store.Path());
                stranger->Run(sql);
            }
        },
        [&] {
            other.Close();
            stranger.reset();
        });
    bench.handle = DayDatabase(u"DayDate.mdb"_s);
    neighbour.DoFirst();
    WatchedDisk disk([](int, bool) {});
    const QByteArray before = BytesOf(u"DayDate.mdb"_s);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no compaction, .*: ."_s));
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(bench.boxes.Shown(), QList<Message>{CompactionFailed()});
    QCOMPARE(disk.Steps(), QStringList(u"size DayDate.mdb"_s));
    QCOMPARE(BytesOf(u"DayDate.mdb"_s), before);
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QVERIFY(bench.handle.IsOpen());
    neighbour.DoSecond();
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
}

QTEST_GUILESS_MAIN(TstCompaction)
#include "tst_compaction.moc"
