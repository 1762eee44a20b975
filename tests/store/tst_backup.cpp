// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include "store/backup.h"
#include "store/day_recovery.h"
#include "store/every_step_disk.h"
#include "store/full_disk.h"
#include "store/loose_store.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QDate kToday(2026, 11, 22);

QString NameOf(QDate day) {
    return u"Backup/DayDate-%1.mdb"_s.arg(day.toString(Qt::ISODate));
}

/// All entries of the folder of backups.
QStringList Entries() {
    return QDir(u"Backup"_s).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QStringList RowsOf(const QString& path) {
    RawConnection file(path);
    return file.Run("SELECT * FROM Kinenbi ORDER BY id") + file.Run("SELECT * FROM Syukuzitu ORDER BY id") +
           file.Run("SELECT * FROM Holiday ORDER BY id") + file.Run("SELECT * FROM Halfday ORDER BY id") +
           file.Run("SELECT * FROM Usuallyday ORDER BY id");
}

void Change(const QByteArray& name = "new") {
    RawConnection(u"DayDate.mdb"_s)
        .Run("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('" + name + "',0,1,2,0)");
}

constexpr int kLost = 8192;  // bytes

/// Reports success, but has stored something else on the last pages.
class LyingDisk : public PosixStoreDisk {
public:
    void Compact(SqliteConnection& from, const QString& to) override {
        PosixStoreDisk::Compact(from, to);
        const QByteArray bytes = BytesOf(to);
        SetBytes(to, bytes.chopped(kLost) + QByteArray(kLost, 'x'));
    }
};

/// The reason of the failure; empty if it succeeds.
QString FaultOfBackup(QDate day, StoreDisk& disk) {
    try {
        TakeBackup(Here(), day, disk);
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
    return QString();
}

}  // namespace

/// Backups of the day database.
class TstBackup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItHasAllRowsInOneCompactFile();
    void NothingIsWrittenIfNothingHasChanged();
    void EveryChangeOfARowCounts_data();
    void EveryChangeOfARowCounts();
    void ThereIsOneADay();
    void ADamagedOneIsNoReasonToTakeNone();
    void OldOnesGoAfterAGoodOne();
    void AFailureLeavesTheOldOnes_data();
    void AFailureLeavesTheOldOnes();
    void AFullDiskIsNamed();
    void ACopyThatIsNotAsItWasWrittenIsNamed();
    void ADamagedDatabaseIsNamedAndLeavesTheOldOnes();
    void AFileInPlaceOfTheFolderIsNamed();
    void WhatAKillHasLeftIsRemoved();
    void ItIsTakenWhileTheDatabaseIsUsed();
    void TheDatabaseMayBeALink();
    void TheListIsInOrder();
    void AStartThatFailsNamesTheNewest();
};

void TstBackup::ItHasAllRowsInOneCompactFile() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(chmod("DayDate.mdb", 0640) == 0);
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
    QCOMPARE(RowsOf(NameOf(kToday)), RowsOf(u"DayDate.mdb"_s));
    QCOMPARE(OpeningFault(NameOf(kToday)), QString());
    QCOMPARE(RawConnection(NameOf(kToday)).Run("PRAGMA freelist_count"), QStringList(u"0"_s));
    QVERIFY(QFileInfo(NameOf(kToday)).size() < QFileInfo(u"DayDate.mdb"_s).size());
    struct stat state {};
    QCOMPARE(stat(NameOf(kToday).toUtf8().constData(), &state), 0);
    QCOMPARE(state.st_mode & 0777U, 0640U);
}

void TstBackup::NothingIsWrittenIfNothingHasChanged() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    EveryStepDisk watched([](int, bool) {});
    QVERIFY(!TakeBackup(Here(), kToday.addDays(1), watched));
    QCOMPARE(watched.Steps(), QStringList());
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
    store.Raw("VACUUM");  // other bytes, the same rows
    QVERIFY(!TakeBackup(Here(), kToday.addDays(1), watched));
}

void TstBackup::EveryChangeOfARowCounts_data() {
    QTest::addColumn<QByteArray>("sql");
    QTest::newRow("a new row") << QByteArray("INSERT INTO Holiday(Date) VALUES ('2026-12-01')");
    QTest::newRow("a row less") << QByteArray("DELETE FROM Usuallyday");
    QTest::newRow("a name") << QByteArray(
        "UPDATE Kinenbi SET Name = 'x' WHERE id = (SELECT max(id) FROM Kinenbi)");
    QTest::newRow("a number") << QByteArray("UPDATE Syukuzitu SET Day = Day + 1 WHERE id = 1");
    QTest::newRow("a date") << QByteArray("UPDATE Halfday SET Date = '2026-10-14'");
    QTest::newRow("the order") << QByteArray(
        "UPDATE Kinenbi SET id = 100000 WHERE id = (SELECT min(id) FROM Kinenbi)");
}

void TstBackup::EveryChangeOfARowCounts() {
    QFETCH(QByteArray, sql);
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    store.Raw(sql);
    QVERIFY(TakeBackup(Here(), kToday.addDays(1), disk));
    QCOMPARE(RowsOf(NameOf(kToday.addDays(1))), RowsOf(u"DayDate.mdb"_s));
}

void TstBackup::ThereIsOneADay() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    const QByteArray first = BytesOf(NameOf(kToday));
    Change();
    QVERIFY(!TakeBackup(Here(), kToday, disk));
    QCOMPARE(BytesOf(NameOf(kToday)), first);
    // The clock was wrong for a day: the backup of that day does not stop those of the real ones.
    QVERIFY(QFile::rename(NameOf(kToday), NameOf(kToday.addYears(1))));
    QVERIFY(TakeBackup(Here(), kToday, disk));
}

void TstBackup::ADamagedOneIsNoReasonToTakeNone() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    const QByteArray sound = BytesOf(NameOf(kToday));
    SetBytes(NameOf(kToday), sound.chopped(sound.size() / 2));
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QCOMPARE(OpeningFault(NameOf(kToday)), QString());
    SetBytes(NameOf(kToday), "x");
    QVERIFY(TakeBackup(Here(), kToday.addDays(1), disk));  // although no row has changed
}

void TstBackup::OldOnesGoAfterAGoodOne() {
    const LooseStore store;
    PosixStoreDisk disk;
    for (int i = 0; i < 40; ++i) {
        Change(QByteArray::number(i));
        QVERIFY(TakeBackup(Here(), kToday.addDays(i), disk));
    }
    // 2026-12-31 is a Thursday: the seven days to it, and the Sundays before them.
    QStringList expected;
    for (const char* day :
         {"2026-11-22", "2026-11-29", "2026-12-06", "2026-12-13", "2026-12-20", "2026-12-25", "2026-12-26",
          "2026-12-27", "2026-12-28", "2026-12-29", "2026-12-30", "2026-12-31"}) {
        expected.append(u"DayDate-%1.mdb"_s.arg(QString::fromLatin1(day)));
    }
    QCOMPARE(Entries(), expected);
}

void TstBackup::AFailureLeavesTheOldOnes_data() {
    QTest::addColumn<int>("step");
    const LooseStore store(100);
    QVERIFY(QDir().mkdir(u"Backup"_s));
    EveryStepDisk disk([](int, bool) {});
    QVERIFY(TakeBackup(Here(), kToday, disk));
    for (int step = 1; step <= disk.Steps().size(); ++step) {
        QTest::addRow("%s", qPrintable(QString::number(step) + u' ' + disk.Steps().at(step - 1))) << step;
    }
}

void TstBackup::AFailureLeavesTheOldOnes() {
    QFETCH(int, step);
    const LooseStore store(100);
    PosixStoreDisk real;
    QVERIFY(QDir().mkdir(u"Backup"_s));
    for (int i = 20; i > 0; --i) {
        QVERIFY(QFile::copy(u"DayDate.mdb"_s, NameOf(kToday.addDays(-i))));
    }
    Change();
    const QStringList before = Entries();
    EveryStepDisk disk([step](int now, bool isDone) {
        if (now == step && !isDone) {
            throw DiskError(u"here"_s, ENOSPC);
        }
    });
    const QString fault = FaultOfBackup(kToday, disk);
    QCOMPARE(fault, u"here\r\nディスクの空き容量が足りません。"_s);
    QStringList after = Entries();
    if (after.size() > before.size()) {  // the last sync failed, so the new one is in place
        QCOMPARE(OpeningFault(NameOf(kToday)), QString());
        after.removeOne(u"DayDate-2026-11-22.mdb"_s);
    }
    QCOMPARE(after, before);
    QCOMPARE(FaultOfBackup(kToday, real), QString());
    QVERIFY(QFile::exists(NameOf(kToday)));
}

void TstBackup::AFullDiskIsNamed() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    const QByteArray old = BytesOf(NameOf(kToday));
    Change();
    {
        const FullDisk full(8192);
        const QString fault = FaultOfBackup(kToday.addDays(1), disk);
        QVERIFY2(!fault.isEmpty(), qPrintable(fault));
    }
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
    QCOMPARE(BytesOf(NameOf(kToday)), old);
    QCOMPARE(FaultOfBackup(kToday.addDays(1), disk), QString());
}

void TstBackup::ACopyThatIsNotAsItWasWrittenIsNamed() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    Change();
    LyingDisk lying;
    QVERIFY(!FaultOfBackup(kToday.addDays(1), lying).isEmpty());
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
}

void TstBackup::ADamagedDatabaseIsNamedAndLeavesTheOldOnes() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QByteArray bytes = BytesOf(u"DayDate.mdb"_s);
    SetBytes(u"DayDate.mdb"_s, bytes.chopped(bytes.size() / 2));
    QVERIFY(!FaultOfBackup(kToday.addDays(1), disk).isEmpty());
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
}

void TstBackup::AFileInPlaceOfTheFolderIsNamed() {
    const LooseStore store(1);
    PosixStoreDisk disk;
    SetBytes(u"Backup"_s, "mine");
    QCOMPARE(FaultOfBackup(kToday, disk),
             u"フォルダーを作れません。\r\nBackup\r\n同じ名前のファイルがあります。"_s);
    QCOMPARE(BytesOf(u"Backup"_s), QByteArray("mine"));
}

void TstBackup::WhatAKillHasLeftIsRemoved() {
    const LooseStore store(1);
    PosixStoreDisk disk;
    QVERIFY(QDir().mkdir(u"Backup"_s));
    SetBytes(u"Backup/.DayDate.mdb.unfinished-backup"_s, "half");
    SetBytes(u"Backup/.DayDate.mdb.unfinished-backup-journal"_s, "half");
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
}

void TstBackup::ItIsTakenWhileTheDatabaseIsUsed() {
    const LooseStore store;
    DayDatabase inUse(u"DayDate.mdb"_s);
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QCOMPARE(inUse.Execute(u"INSERT INTO Kinenbi VALUES (\"x\",0,1,2,0)"_s), 1);
    QVERIFY(TakeBackup(Here(), kToday.addDays(1), disk));
    QVERIFY(RowsOf(NameOf(kToday.addDays(1))).join(u'\n').contains(u"|x|0|1|2|0"));
}

void TstBackup::TheDatabaseMayBeALink() {
    const LooseStore store;
    PosixStoreDisk disk;
    QVERIFY(QDir().mkdir(u"synced"_s));
    QVERIFY(QFile::rename(u"DayDate.mdb"_s, u"synced/days.mdb"_s));
    QVERIFY(QFile::link(u"synced/days.mdb"_s, u"DayDate.mdb"_s));
    QVERIFY(TakeBackup(Here(), kToday, disk));
    QCOMPARE(Entries(), QStringList(u"DayDate-2026-11-22.mdb"_s));
    QCOMPARE(RowsOf(NameOf(kToday)), RowsOf(u"synced/days.mdb"_s));
}

void TstBackup::TheListIsInOrder() {
    const LooseStore store(1);
    QCOMPARE(FindBackups(Here()).size(), 0);
    QVERIFY(QDir().mkpath(u"Backup/DayDate-2026-11-25.mdb"_s));  // a folder
    for (const char* name :
         {"DayDate-2026-11-22.mdb", "DayDate-2026-11-24.mdb", "DayDate-2025-12-24.mdb", "x"}) {
        SetBytes(u"Backup/"_s + QString::fromLatin1(name), name);
    }
    const QList<Backup> backups = FindBackups(Here());
    QCOMPARE(backups.size(), 3);
    QCOMPARE(backups[0].day, QDate(2026, 11, 24));
    QCOMPARE(backups[1].day, QDate(2026, 11, 22));
    QCOMPARE(backups[2].day, QDate(2025, 12, 24));
    QCOMPARE(backups[0].size, 22);
}

void TstBackup::AStartThatFailsNamesTheNewest() {
    const LooseStore store(1);
    PosixStoreDisk disk;
    QVERIFY(TakeBackup(Here(), kToday, disk));
    Change();
    QVERIFY(TakeBackup(Here(), kToday.addDays(1), disk));
    QCOMPARE(WithNamedCopies(Here(), u"DayDate.mdb"_s),
             u"DayDate.mdb\r\nデータベースの控えが残っています：Backup/DayDate-2026-11-23.mdb"_s);
}

QTEST_GUILESS_MAIN(TstBackup)
#include "tst_backup.moc"
