// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include "days/day_rule.h"
#include "store/day_database.h"
#include "store/day_store.h"
#include "store/day_transaction.h"
#include "store/full_disk.h"
#include "store/neighbour.h"
#include "store/sql_error.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QString kEverything = u"SELECT * FROM Kinenbi WHERE Year <> 5"_s;
const QString kInUse = u"データベースはほかのプログラムで使用中です。"_s;

/// SQLite's code if `deed` fails; 0 if it succeeds.
template <typename Deed>
int Fault(Deed deed) {
    try {
        deed();
    } catch (const SqlError& error) {
        return error.SqliteCode();
    }
    return 0;
}

int InsertFault(DayDatabase& database, const QString& name = u"新しい記念日"_s) {
    return Fault([&] { database.Execute(u"INSERT INTO Kinenbi VALUES (\"%1\",0,10,3,0)"_s.arg(name)); });
}

/// Whether the lock file can be locked exclusively.
bool CanLockExclusively(const DayStore& store) {
    const int file = open(qPrintable(store.Folder() + u"/DayDate.lock"), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    const bool can = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return can;
}

void SetMode(const QString& path, mode_t mode) {
    if (chmod(qPrintable(path), mode) != 0) {
        qFatal("chmod");
    }
}

/// The operations that a store allows, as "10 holidays, insert 8, 0 rows"; 8 is SQLite's code.
QString WhatCanBeDone(const QString& path) {
    try {
        DayDatabase database(path);
        const int holidays = database.RunQuery(u"SELECT * FROM Syukuzitu WHERE Month > 0"_s).Count();
        const int fault = InsertFault(database);
        return u"%1 holidays, insert %2, %3 rows"_s.arg(holidays).arg(fault).arg(
            database.RunQuery(kEverything).Count());
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
}

}  // namespace

/// External changes to the file: each causes a clear error, and no row is lost.
class TstStoreFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReadsAReadOnlyFile();
    void ReadsInAReadOnlyFolder();
    void RefusesAnUnreadableFile();
    void LosesNothingOnAFullDisk();
    void RollsBackATransactionOnAFullDisk();
    void WaitsForAnotherProcessAndGivesUp();
    void DoesNotOpenAFileLockedByAnotherProcess();
    void ReportsThatTheFileWasMoved();
    void HoldsASharedLock();
};

void TstStoreFaults::ReadsAReadOnlyFile() {
    const DayStore store;
    SetMode(store.Folder(), 0777);
    SetMode(store.Path(), 0444);
    QCOMPARE(ToldByNobody([&] { return WhatCanBeDone(store.Path()); }), u"10 holidays, insert 8, 0 rows"_s);
}

void TstStoreFaults::ReadsInAReadOnlyFolder() {
    const DayStore store;
    SetMode(store.Path(), 0666);
    SetMode(store.Folder(), 0555);
    QCOMPARE(ToldByNobody([&] { return WhatCanBeDone(store.Path()); }),
             u"10 holidays, insert 1544, 0 rows"_s);
    QVERIFY(!QFile::exists(store.Folder() + u"/DayDate.lock"));
    SetMode(store.Folder(), 0755);
}

void TstStoreFaults::RefusesAnUnreadableFile() {
    const DayStore store;
    SetMode(store.Folder(), 0777);
    SetMode(store.Path(), 0000);
    QCOMPARE(ToldByNobody([&] { return WhatCanBeDone(store.Path()); }),
             Told(store.Path(), u"データベースのファイルを開けません。(14)"_s));
}

void TstStoreFaults::LosesNothingOnAFullDisk() {
    const DayStore store;
    DayDatabase database(store.Path());
    const QString longName(1000, u'x');  // long, so that the disk is soon full
    int stored = 0;
    for (const rlim_t room : {0U, 100U, 600U, 4096U, 40'960U, 163'840U}) {
        int fault = 0;
        {
            const FullDisk disk(room);
            for (int i = 0; i < 1000 && fault == 0; ++i) {
                fault = InsertFault(database, longName);
                stored += fault == 0 ? 1 : 0;
            }
        }
        QVERIFY2(fault == SQLITE_FULL || fault == SQLITE_IOERR_WRITE, qPrintable(QString::number(fault)));
        QCOMPARE(database.RunQuery(kEverything).Count(), stored);
        QCOMPARE(InsertFault(database), 0);  // the disk has space again
        ++stored;
        QCOMPARE(store.Raw("PRAGMA quick_check; SELECT count(*) FROM Kinenbi"),
                 QStringList({u"ok"_s, QString::number(stored)}));
    }
}

void TstStoreFaults::RollsBackATransactionOnAFullDisk() {
    const DayStore store;
    Fill(store, 500);
    DayDatabase database(store.Path());
    const int before = database.RunQuery(kEverything).Count();
    const auto changeAll = [&] {
        DayTransaction transaction(database);
        database.Execute(u"DELETE * FROM Kinenbi WHERE Month > 6"_s);
        for (int i = 0; i < 2000; ++i) {
            database.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
        }
        transaction.Commit();
    };
    int fault = 0;
    {
        const FullDisk disk(rlim_t(BytesOf(store.Path()).size()));
        fault = Fault(changeAll);
    }
    QVERIFY2(fault == SQLITE_FULL || fault == SQLITE_IOERR_WRITE, qPrintable(QString::number(fault)));
    QCOMPARE(database.RunQuery(kEverything).Count(), before);
    QCOMPARE(Fault(changeAll), 0);
    QCOMPARE(store.Raw("PRAGMA quick_check"), QStringList(u"ok"_s));
}

void TstStoreFaults::WaitsForAnotherProcessAndGivesUp() {
    const DayStore store;
    std::unique_ptr<RawConnection> holder;
    Neighbour neighbour(
        [&] {
            holder = std::make_unique<RawConnection>(store.Path());
            holder->Run("BEGIN EXCLUSIVE");
        },
        [&] { holder->Run("COMMIT"); });
    DayDatabase database(store.Path());
    neighbour.DoFirst();
    QCOMPARE(InsertFault(database), SQLITE_BUSY);
    QCOMPARE(Fault([&] { database.RunQuery(kEverything); }), SQLITE_BUSY);
    QCOMPARE(Fault([&] { const DayTransaction transaction(database); }), SQLITE_BUSY);
    neighbour.DoSecond();
    QCOMPARE(InsertFault(database), 0);
    QCOMPARE(database.RunQuery(kEverything).Count(), 1);
}

void TstStoreFaults::DoesNotOpenAFileLockedByAnotherProcess() {
    const DayStore store;
    std::unique_ptr<RawConnection> holder;
    Neighbour neighbour(
        [&] {
            holder = std::make_unique<RawConnection>(store.Path());
            holder->Run("BEGIN EXCLUSIVE");
        },
        [&] { holder.reset(); });
    neighbour.DoFirst();
    QCOMPARE(OpeningFault(store.Path()), Told(store.Path(), kInUse + u"(5)"_s));
    neighbour.DoSecond();
    QCOMPARE(OpeningFault(store.Path()), QString());
}

void TstStoreFaults::ReportsThatTheFileWasMoved() {
    const DayStore store;
    DayDatabase database(store.Path());
    QCOMPARE(InsertFault(database), 0);
    QVERIFY(QFile::rename(store.Path(), store.Path() + u".old"));
    QCOMPARE(InsertFault(database), SQLITE_READONLY_DBMOVED);
    QVERIFY(!QFile::exists(store.Path()));
    QVERIFY(QFile::rename(store.Path() + u".old", store.Path()));
    QCOMPARE(InsertFault(database), 0);
    QCOMPARE(store.Raw("SELECT count(*) FROM Kinenbi"), QStringList(u"2"_s));
}

void TstStoreFaults::HoldsASharedLock() {
    const DayStore store;
    {
        const DayDatabase first(store.Path());
        const DayDatabase second(store.Path());
        QVERIFY(!CanLockExclusively(store));
    }
    QVERIFY(CanLockExclusively(store));
    const int file = open(qPrintable(store.Folder() + u"/DayDate.lock"), O_RDWR | O_CLOEXEC);
    QCOMPARE(flock(file, LOCK_EX | LOCK_NB), 0);
    QCOMPARE(OpeningFault(store.Path()), Told(store.Path(), kInUse));
    close(file);
    QCOMPARE(OpeningFault(store.Path()), QString());
    // A failed opening leaves nothing locked.
    SetBytes(store.Path(), "x");
    QVERIFY(!OpeningFault(store.Path()).isEmpty());
    QVERIFY(CanLockExclusively(store));
}

QTEST_GUILESS_MAIN(TstStoreFaults)
#include "tst_store_faults.moc"
