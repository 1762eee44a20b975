// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include "store/backup.h"
#include "store/day_recovery.h"
#include "store/every_step_disk.h"
#include "store/full_disk.h"
#include "store/loose_store.h"
#include "store/neighbour.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QDate kDay(2026, 11, 22);
const QString kBackup = u"Backup/DayDate-2026-11-22.mdb"_s;
const QString kKept = u"DayDate.before-restore.mdb"_s;

QStringList RowsOf(const QString& path) {
    return RawConnection(path).Run("SELECT * FROM Kinenbi ORDER BY id") +
           RawConnection(path).Run("SELECT * FROM Holiday ORDER BY id");
}

/// A store with a backup, changed since.
struct Case {
    LooseStore store;
    QStringList backedUp;
    QStringList present;

    explicit Case(int rows = 3000) : store(rows) {
        PosixStoreDisk disk;
        TakeBackup(Here(), kDay, disk);
        backedUp = RowsOf(kBackup);
        store.Raw(
            "DELETE FROM Kinenbi; INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('new',0,1,2,0)");
        present = RowsOf(u"DayDate.mdb"_s);
    }
};

/// A disk whose links fail as on a file system without them, or whose steps fail.
class OddDisk : public EveryStepDisk {
public:
    explicit OddDisk(
        int linkError, Watch watch = [](int, bool) {})
        : EveryStepDisk(std::move(watch)), m_linkError(linkError) {}

    void Link(const QString& from, const QString& to) override {
        if (m_linkError != 0) {
            throw DiskError(to, m_linkError);
        }
        WatchedDisk::Link(from, to);
    }

private:
    int m_linkError;
};

QStringList NamesWithBackup() {
    return {u"Backup"_s, u"DayDate.lock"_s, u"DayDate.mdb"_s};
}

}  // namespace

/// Restoring a backup.
class TstRestore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheBackupIsInPlaceAndThePresentFileBesideIt();
    void WhatAnEarlierRestoreHasKeptStays();
    void ADamagedBackupIsRefused_data();
    void ADamagedBackupIsRefused();
    void AFailureLeavesThePresentFile_data();
    void AFailureLeavesThePresentFile();
    void AFullDiskLeavesThePresentFile();
    void AFileSystemWithoutLinks();
    void ADamagedPresentFileCanBeReplaced();
    void AFileInUseIsNotReplaced();
    void ALinkStaysALink();
};

void TstRestore::TheBackupIsInPlaceAndThePresentFileBesideIt() {
    const Case given;
    PosixStoreDisk disk;
    const QByteArray backup = BytesOf(kBackup);
    DayDatabase database(u"DayDate.mdb"_s);
    BeginCompaction(database, Here());
    CompactionEnd end = RestoreBackup(Here(), kDay, disk);
    QCOMPARE(end.fault, QString());
    QCOMPARE(*end.report, (Message{MessageIcon::Information, u"控えに戻す"_s,
                                   u"2026年11月22日の控えに戻しました。\r\n戻す前のデータベースは、次のファイ"
                                   u"ルに残してあります。\r\n"
                                   u"DayDate.before-restore.mdb"_s}));
    QVERIFY(end.dayDatabase.TryOpen());
    end.dayDatabase.Close();
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.backedUp);
    QCOMPARE(RowsOf(kKept), given.present);
    QCOMPARE(OpeningFault(u"DayDate.mdb"_s), QString());
    QCOMPARE(OpeningFault(kKept), QString());
    QCOMPARE(BytesOf(kBackup), backup);
    QVERIFY(!QFile::exists(u"BUDate.mdb"_s));
}

void TstRestore::WhatAnEarlierRestoreHasKeptStays() {
    const Case given;
    PosixStoreDisk disk;
    SetBytes(kKept, "first");
    SetBytes(u"DayDate.before-restore.2.mdb"_s, "second");
    QCOMPARE(ReplaceDayFile(Here(), Here().PathOf(kBackup), disk),
             Here().PathOf(u"DayDate.before-restore.3.mdb"_s));
    QCOMPARE(BytesOf(kKept), QByteArray("first"));
    QCOMPARE(BytesOf(u"DayDate.before-restore.2.mdb"_s), QByteArray("second"));
    QCOMPARE(RowsOf(u"DayDate.before-restore.3.mdb"_s), given.present);
}

void TstRestore::ADamagedBackupIsRefused_data() {
    QTest::addColumn<QByteArray>("damage");
    QTest::addColumn<QString>("reason");
    QTest::newRow("cut") << QByteArray("cut") << QString();
    QTest::newRow("empty") << QByteArray("empty") << u"データベースの形式が違います。"_s;
    QTest::newRow("another kind") << QByteArray("text") << u"データベースの形式が違います。(26)"_s;
    QTest::newRow("missing") << QByteArray("missing") << u"データベースのファイルがありません。"_s;
    QTest::newRow("a table is missing")
        << QByteArray("DROP TABLE Halfday") << u"データベースに表 Halfday がありません。"_s;
    QTest::newRow("a column is missing") << QByteArray("ALTER TABLE Syukuzitu DROP COLUMN Day")
                                         << u"データベースの表 Syukuzitu の形が違います。"_s;
    QTest::newRow("newer") << QByteArray("PRAGMA user_version = 2")
                           << u"新しい版のプログラムで作られたデータベースです。"_s;
}

void TstRestore::ADamagedBackupIsRefused() {
    QFETCH(QByteArray, damage);
    QFETCH(QString, reason);
    const Case given;
    PosixStoreDisk disk;
    const QByteArray sound = BytesOf(kBackup);
    if (damage == "cut") {
        SetBytes(kBackup, sound.chopped(sound.size() / 2));
    } else if (damage == "empty") {
        SetBytes(kBackup, {});
    } else if (damage == "text") {
        SetBytes(kBackup, QByteArray(5000, 'x'));
    } else if (damage == "missing") {
        QVERIFY(QFile::remove(kBackup));
    } else {
        RawConnection(kBackup).Run(damage);
    }
    const QByteArray before = BytesOf(u"DayDate.mdb"_s);
    CompactionEnd end = RestoreBackup(Here(), kDay, disk);
    QCOMPARE(end.report->icon, MessageIcon::Exclamation);
    QVERIFY(end.report->text.startsWith(u"2026年11月22日の控えに戻せませんでした。\r\n\r\n"_s));
    QVERIFY2(end.report->text.endsWith(reason), qPrintable(end.report->text));
    QVERIFY(end.dayDatabase.TryOpen());
    end.dayDatabase.Close();
    QCOMPARE(BytesOf(u"DayDate.mdb"_s), before);
    QCOMPARE(given.store.Names(), NamesWithBackup());
}

void TstRestore::AFailureLeavesThePresentFile_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isDone");
    const Case given(100);
    EveryStepDisk disk([](int, bool) {});
    ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    for (int step = 1; step <= disk.Steps().size(); ++step) {
        const QString name = QString::number(step) + u' ' + disk.Steps().at(step - 1);
        QTest::newRow(qPrintable(u"before "_s + name)) << step << false;
        QTest::newRow(qPrintable(u"after "_s + name)) << step << true;
    }
}

void TstRestore::AFailureLeavesThePresentFile() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const Case given(100);
    EveryStepDisk disk([&](int now, bool isNowDone) {
        if (now == step && isNowDone == isDone) {
            throw DiskError(u"here"_s, EIO);
        }
    });
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ReplaceDayFile(Here(), Here().PathOf(kBackup), disk));
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.present);
    RecoverDayDatabase(Here());
    QCOMPARE(given.store.Names(), NamesWithBackup());
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.present);
}

void TstRestore::AFullDiskLeavesThePresentFile() {
    const Case given;
    PosixStoreDisk disk;
    {
        const FullDisk full(8192);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, ReplaceDayFile(Here(), Here().PathOf(kBackup), disk));
    }
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.present);
    QCOMPARE(given.store.Names(), NamesWithBackup());
}

void TstRestore::AFileSystemWithoutLinks() {
    const Case given;
    OddDisk disk(EPERM);
    ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.backedUp);
    QCOMPARE(RowsOf(kKept), given.present);
    OddDisk broken(EIO);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ReplaceDayFile(Here(), Here().PathOf(kBackup), broken));
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.backedUp);
}

void TstRestore::ADamagedPresentFileCanBeReplaced() {
    const Case given;
    PosixStoreDisk disk;
    const QByteArray damaged = BytesOf(u"DayDate.mdb"_s).chopped(9000);
    SetBytes(u"DayDate.mdb"_s, damaged);
    SetBytes(u"DayDate.mdb-shm"_s, "rest");
    ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.backedUp);
    QCOMPARE(BytesOf(kKept), damaged);
    QVERIFY(!QFile::exists(u"DayDate.mdb-shm"_s));
}

void TstRestore::AFileInUseIsNotReplaced() {
    const Case given;
    PosixStoreDisk disk;
    std::unique_ptr<SqliteConnection> other;
    Neighbour neighbour([&] { other = std::make_unique<SqliteConnection>(u"DayDate.mdb"_s); },
                        [&] { other.reset(); });
    neighbour.DoFirst();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ReplaceDayFile(Here(), Here().PathOf(kBackup), disk));
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.present);
    neighbour.DoSecond();
    ReplaceDayFile(Here(), Here().PathOf(kBackup), disk);
    QCOMPARE(RowsOf(u"DayDate.mdb"_s), given.backedUp);
}

void TstRestore::ALinkStaysALink() {
    const Case given;
    PosixStoreDisk disk;
    QVERIFY(QDir().mkdir(u"synced"_s));
    QVERIFY(QFile::rename(u"DayDate.mdb"_s, u"synced/days.mdb"_s));
    QVERIFY(QFile::link(u"synced/days.mdb"_s, u"DayDate.mdb"_s));
    QCOMPARE(ReplaceDayFile(Here(), Here().PathOf(kBackup), disk),
             Here().PathOf(u"synced/days.before-restore.mdb"_s));
    QVERIFY(QFileInfo(u"DayDate.mdb"_s).isSymLink());
    QCOMPARE(RowsOf(u"synced/days.mdb"_s), given.backedUp);
    QCOMPARE(RowsOf(u"synced/days.before-restore.mdb"_s), given.present);
}

QTEST_GUILESS_MAIN(TstRestore)
#include "tst_restore.moc"
