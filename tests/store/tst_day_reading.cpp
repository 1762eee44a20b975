// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QDir>
#include <QTest>

#include "core/errors.h"
#include "store/day_database.h"
#include "store/day_store.h"
#include "store/day_transaction.h"
#include "store/neighbour.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QString kEverything = u"SELECT * FROM Kinenbi WHERE Year <> 5"_s;
const QString kInsert = u"INSERT INTO Kinenbi VALUES (\"新しい記念日\",0,10,3,0)"_s;
const QStringList kFileAlone{u"DayDate.mdb"_s};

QStringList Names(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// What a reader finds, as "10 holidays"; if opening fails, the reason without the path.
QString WhatIsRead(const QString& path) {
    try {
        DayDatabase database = DayDatabase::OpenToRead(path);
        return u"%1 holidays"_s.arg(database.RunQuery(u"SELECT * FROM Syukuzitu WHERE Month > 0"_s).Count());
    } catch (const RunTimeError& error) {
        return error.Reason().section(u"\r\n"_s, -1);
    }
}

/// The file and journal of a writer that was killed while it stored a large change.
void LeaveHalfAChange(const DayStore& store, const QString& folder) {
    RawConnection writer(store.Path());
    writer.Run(
        "PRAGMA cache_size = 5; BEGIN;"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'x',0,1,1,0 FROM n");
    for (const QString& name : Names(store.Folder())) {
        SetBytes(folder + u'/' + name, BytesOf(store.Folder() + u'/' + name));
    }
}

}  // namespace

/// The day database opened for reading only.
class TstDayReading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NeitherTheFileNorItsFolderIsChanged();
    void AReadOnlyFileInAReadOnlyFolderIsRead();
    void NothingCanBeStored();
    void AReaderCanBeReplacedByAWriter();
    void AnotherWriterDoesNotPreventReading();
    void AnExclusiveLockIsReportedAtOnce();
    void AnIncompleteChangeIsReported();
    void AnotherJournalModeIsReportedAndNoJournalIsMade();
    void AMissingFileIsNamed();
    void RowsComeOneAfterTheOther();
    void ARejectedRowEndsTheReading();
};

void TstDayReading::NeitherTheFileNorItsFolderIsChanged() {
    const DayStore store;
    const QByteArray before = BytesOf(store.Path());
    QCOMPARE(WhatIsRead(store.Path()), u"10 holidays"_s);
    QCOMPARE(Names(store.Folder()), kFileAlone);
    QCOMPARE(BytesOf(store.Path()), before);
}

void TstDayReading::AReadOnlyFileInAReadOnlyFolderIsRead() {
    const DayStore store;
    QCOMPARE(chmod(qPrintable(store.Path()), 0444), 0);
    QCOMPARE(chmod(qPrintable(store.Folder()), 0555), 0);
    QCOMPARE(ToldByNobody([&] { return WhatIsRead(store.Path()); }), u"10 holidays"_s);
    QCOMPARE(chmod(qPrintable(store.Folder()), 0755), 0);
    QCOMPARE(Names(store.Folder()), kFileAlone);
}

void TstDayReading::NothingCanBeStored() {
    const DayStore store;
    DayDatabase database = DayDatabase::OpenToRead(store.Path());
    QVERIFY_THROWS_EXCEPTION(RunTimeError, database.Execute(kInsert));
    DayDatabase moved = std::move(database);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, moved.Execute(kInsert));
    QCOMPARE(moved.RunQuery(kEverything).Count(), 0);
}

void TstDayReading::AReaderCanBeReplacedByAWriter() {
    const DayStore store;
    DayDatabase database = DayDatabase::OpenToRead(store.Path());
    database = DayDatabase::OpenLater(store.Path());
    QCOMPARE(database.Execute(kInsert), 1);
}

void TstDayReading::AnotherWriterDoesNotPreventReading() {
    const DayStore store;
    DayDatabase writer(store.Path());
    DayTransaction transaction(writer);
    QCOMPARE(writer.Execute(kInsert), 1);
    DayDatabase reader = DayDatabase::OpenToRead(store.Path());
    QCOMPARE(reader.RunQuery(kEverything).Count(), 0);
    transaction.Commit();
    QCOMPARE(reader.RunQuery(kEverything).Count(), 1);
}

void TstDayReading::AnExclusiveLockIsReportedAtOnce() {
    const DayStore store;
    auto compacting = std::make_unique<SqliteConnection>(store.Path());
    compacting->TakeExclusive();
    QCOMPARE(WhatIsRead(store.Path()), u"データベースはほかのプログラムで使用中です。(5)"_s);
    compacting.reset();
    QCOMPARE(WhatIsRead(store.Path()), u"10 holidays"_s);
}

void TstDayReading::AnIncompleteChangeIsReported() {
    const DayStore store;
    const QTemporaryDir folder;
    LeaveHalfAChange(store, folder.path());
    const QStringList before = Names(folder.path());
    QCOMPARE(before, (QStringList{u"DayDate.mdb"_s, u"DayDate.mdb-journal"_s}));
    const QString path = folder.filePath(u"DayDate.mdb"_s);
    QCOMPARE(WhatIsRead(path),
             u"データベースへの書き込みが途中で終わっています。Tickwell を起動すると元に戻ります。(776)"_s);
    QCOMPARE(Names(folder.path()), before);
    QCOMPARE(DayDatabase(path).RunQuery(kEverything).Count(), 0);  // as when the program starts
    QCOMPARE(WhatIsRead(path), u"10 holidays"_s);
}

void TstDayReading::AnotherJournalModeIsReportedAndNoJournalIsMade() {
    const DayStore store;
    store.Raw("PRAGMA journal_mode = WAL");
    QCOMPARE(WhatIsRead(store.Path()),
             u"データベースの書き込み方式 (WAL) が変えられています。Tickwell を起動すると元に戻ります。"_s);
    QCOMPARE(Names(store.Folder()), kFileAlone);
    QVERIFY(DayDatabase(store.Path()).IsOpen());  // as when the program starts
    QCOMPARE(WhatIsRead(store.Path()), u"10 holidays"_s);
}

void TstDayReading::AMissingFileIsNamed() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"DayDate.mdb"_s);
    try {
        DayDatabase::OpenToRead(path);
        QFAIL("opened");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), path + u"\r\nデータベースのファイルがありません。");
    }
    QCOMPARE(Names(folder.path()), QStringList());
}

void TstDayReading::RowsComeOneAfterTheOther() {
    const DayStore store;
    store.Raw(
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES "
        "(3,'c',0,1,9,0),(1,'a',0,1,31,0),(2,'b',0,1,1,0),(4,'d',5,1,2,0)");
    DayDatabase database = DayDatabase::OpenToRead(store.Path());
    QStringList rows;
    database.ForEachRow(
        u"SELECT * FROM Kinenbi WHERE Year = 0 AND Day BETWEEN 1 AND 31"_s,
        [&](const ResultRow& row) { rows.append(row.Text(u"Name") + QString::number(row.Integer(u"Day"))); });
    QCOMPARE(rows, (QStringList{u"a31"_s, u"b1"_s, u"c9"_s}));
    QVERIFY_THROWS_EXCEPTION(RunTimeError,
                             database.ForEachRow(u"DELETE * FROM Kinenbi WHERE Year = 0"_s, [](auto&) {}));
}

void TstDayReading::ARejectedRowEndsTheReading() {
    const DayStore store;
    Fill(store, 3);
    DayDatabase database(store.Path());
    int rows = 0;
    const auto refuse = [&](const ResultRow&) {
        if (++rows == 2) {
            throw RunTimeError(u"no"_s);
        }
    };
    QVERIFY_THROWS_EXCEPTION(RunTimeError, database.ForEachRow(kEverything, refuse));
    QCOMPARE(rows, 2);
    store.Raw("DELETE FROM Kinenbi");  // no lock is left
    database.ForEachRow(kEverything, [&](const ResultRow&) { ++rows; });
    QCOMPARE(rows, 2);
}

QTEST_GUILESS_MAIN(TstDayReading)
#include "tst_day_reading.moc"
