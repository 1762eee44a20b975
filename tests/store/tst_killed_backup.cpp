// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <csignal>

#include "store/backup.h"
#include "store/day_recovery.h"
#include "store/every_step_disk.h"
#include "store/killed_life.h"
#include "store/loose_store.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr int kKillsAtAnyMoment = 60;
constexpr int kLongestLife = 60'000;  // microseconds
const QDate kDay(2026, 11, 22);
const QString kLive = u"DayDate.mdb"_s;
const QString kBackup = u"Backup/DayDate-2026-11-22.mdb"_s;

QStringList RowsOf(const QString& path) {
    return RawConnection(path).Run("SELECT * FROM Kinenbi ORDER BY id");
}

void RunAndDie(const std::function<void()>& life) {
    const pid_t child = fork();
    if (child == 0) {
        life();
        _exit(0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

WatchedDisk::Watch DieAt(int step, bool isDone) {
    return [step, isDone](int now, bool isNowDone) {
        if (now == step && isNowDone == isDone) {
            kill(getpid(), SIGKILL);
        }
    };
}

/// A step of the work, and whether the kill comes after it.
void AddSteps(const QStringList& steps) {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isDone");
    for (int step = 1; step <= steps.size(); ++step) {
        const QString name = QString::number(step) + u' ' + steps.at(step - 1);
        QTest::newRow(qPrintable(u"before "_s + name)) << step << false;
        QTest::newRow(qPrintable(u"after "_s + name)) << step << true;
    }
}

void Change() {
    RawConnection(kLive).Run("DELETE FROM Kinenbi WHERE id % 40 = 0");
}

}  // namespace

/// Backups and restores that are killed: no row is lost, no file with the name of a backup is incomplete, and
/// the next start cleans up.
class TstKilledBackup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ABackupAtEachStep_data();
    void ABackupAtEachStep();
    void ARestoreAtEachStep_data();
    void ARestoreAtEachStep();
    void AtAnyMoment();
};

void TstKilledBackup::ABackupAtEachStep_data() {
    const LooseStore store(100);
    PosixStoreDisk real;
    TakeBackup(Here(), kDay, real);
    Change();
    EveryStepDisk disk([](int, bool) {});
    TakeBackup(Here(), kDay.addDays(1), disk);
    AddSteps(disk.Steps());
}

void TstKilledBackup::ABackupAtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const LooseStore store(100);
    PosixStoreDisk real;
    TakeBackup(Here(), kDay, real);
    const QStringList backedUp = RowsOf(kBackup);
    Change();
    const QStringList present = RowsOf(kLive);
    RunAndDie([&] {
        EveryStepDisk disk(DieAt(step, isDone));
        TakeBackup(Here(), kDay.addDays(1), disk);
    });
    RecoverDayDatabase(Here());
    QCOMPARE(OpeningFault(kLive), QString());
    QCOMPARE(RowsOf(kLive), present);
    QCOMPARE(RowsOf(kBackup), backedUp);
    for (const Backup& backup : FindBackups(Here())) {
        QCOMPARE(OpeningFault(BackupPath(Here(), backup.day)), QString());
    }
    TakeBackup(Here(), kDay.addDays(1), real);
    const QString next = u"Backup/DayDate-2026-11-23.mdb"_s;
    QCOMPARE(RowsOf(next), present);
    QVERIFY(!QFile::exists(u"Backup/.DayDate.mdb.unfinished-backup"_s) || FindBackups(Here()).size() == 2);
}

void TstKilledBackup::ARestoreAtEachStep_data() {
    const LooseStore store(100);
    PosixStoreDisk real;
    TakeBackup(Here(), kDay, real);
    EveryStepDisk disk([](int, bool) {});
    ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    AddSteps(disk.Steps());
}

void TstKilledBackup::ARestoreAtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const LooseStore store(100);
    PosixStoreDisk real;
    TakeBackup(Here(), kDay, real);
    const QStringList backedUp = RowsOf(kBackup);
    Change();
    const QStringList present = RowsOf(kLive);
    RunAndDie([&] {
        EveryStepDisk disk(DieAt(step, isDone));
        ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    });
    QVERIFY(QFile::exists(kLive));
    RecoverDayDatabase(Here());
    QCOMPARE(OpeningFault(kLive), QString());
    const QStringList rows = RowsOf(kLive);
    QVERIFY(rows == present || rows == backedUp);
    if (rows == backedUp) {
        QCOMPARE(RowsOf(u"DayDate.before-restore.mdb"_s), present);
    } else {
        QVERIFY(!QFile::exists(u"DayDate.before-restore.mdb"_s));
    }
    QCOMPARE(RowsOf(kBackup), backedUp);
    QVERIFY(!QFile::exists(u"BUDate.mdb"_s));
}

void TstKilledBackup::AtAnyMoment() {
    const LooseStore store;
    PosixStoreDisk real;
    TakeBackup(Here(), kDay, real);
    const QStringList backedUp = RowsOf(kBackup);
    Change();
    const QStringList changed = RowsOf(kLive);
    QVERIFY(QFile::copy(kLive, u"changed"_s));
    int restored = 0;
    for (int i = 0; i < kKillsAtAnyMoment; ++i) {
        LastOf(kLongestLife, [&](int) {
            PosixStoreDisk disk;
            for (int day = 1;; ++day) {
                TakeBackup(Here(), kDay.addDays(1 + day % 3), disk);
                ReplaceDayFile(Here(), Here().PathOf(day % 2 == 0 ? u"changed"_s : kBackup), disk);
            }
        });
        RecoverDayDatabase(Here());
        QCOMPARE(OpeningFault(kLive), QString());
        const QStringList rows = RowsOf(kLive);
        QVERIFY(rows == changed || rows == backedUp);
        restored += rows == backedUp ? 1 : 0;
        for (const Backup& backup : FindBackups(Here())) {
            QCOMPARE(OpeningFault(BackupPath(Here(), backup.day)), QString());
        }
        const QStringList kept = QDir().entryList({u"DayDate.before-restore*.mdb"_s}, QDir::Files);
        for (const QString& name : kept) {
            QCOMPARE(OpeningFault(name), QString());
            QVERIFY(QFile::remove(name));
        }
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"at kill %1"_s.arg(i)));
        }
    }
    qInfo("the restored rows were found %d times", restored);
    QVERIFY(restored > 0);
}

QTEST_GUILESS_MAIN(TstKilledBackup)
#include "tst_killed_backup.moc"
