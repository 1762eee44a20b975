// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "support/files.h"
#include "sync/sync_place.h"

using namespace tickwell;
using namespace tickwell::sync;
using namespace Qt::StringLiterals;

/// Merges of real day databases through files.
class TstRound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TwoNewComputersStayAsTheyAre();
    void WhatOneAddsDeletesAndEditsTheOtherHas();
    void RowsOfAllTablesAreMerged();
    void EqualRowsAreCounted();
    void OfEqualRowsTheLastOneGoes();
    void RowsComeInTheOrderInWhichTheyWereAdded();
    void AnyBytesOfANameArrive();
    void RowsThatOthersCouldNotShowStay();
    void WithoutNewsNothingIsReadOrWritten();
    void ANewDayDatabaseDeletesNothing();
    void AfterARestoredBackupNothingIsMissing();
    void IfTheBookHasChangedMeanwhileNothingIsStored();
    void AMergeThatFailsChangesNothing();
    void AClockADayBackDecidesNothing();
};

void TstRound::TwoNewComputersStayAsTheyAre() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    const QStringList before = study.AllRows();
    QCOMPARE(before.size(), 10);
    QCOMPARE(study.Merge().computers, 1);
    QCOMPARE(laptop.Merge().computers, 2);
    QCOMPARE(study.Merge().computers, 2);
    QCOMPARE(study.AllRows(), before);
    QCOMPARE(laptop.AllRows(), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
             (QStringList{u"laptop.tickwell-days"_s, u"study.tickwell-days"_s}));
}

void TstRound::WhatOneAddsDeletesAndEditsTheOtherHas() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Add("b");
    laptop.Add("c");
    study.Merge();
    laptop.Merge();
    QCOMPARE(laptop.Names(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    study.Merge();
    QCOMPARE(study.AllRows(), laptop.AllRows());
    laptop.Delete("a");
    laptop.Raw(R"(UPDATE "Kinenbi" SET "Name" = 'd' WHERE "Name" = 'b')");
    laptop.Merge();
    study.Merge();
    QCOMPARE(study.Names(), (QStringList{u"c"_s, u"d"_s}));
    QCOMPARE(laptop.Names(), (QStringList{u"c"_s, u"d"_s}));
}

void TstRound::RowsOfAllTablesAreMerged() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Raw(R"(INSERT INTO "Holiday"("Date") VALUES('2026-11-24'))");
    study.Raw(R"(INSERT INTO "Halfday"("Date") VALUES('2026-11-25'))");
    laptop.Raw(R"(INSERT INTO "Usuallyday"("Date") VALUES('2026-11-28'))");
    laptop.Raw(R"(INSERT INTO "Syukuzitu"("Name","Month","Day") VALUES('開校記念日',6,1))");
    laptop.Raw(R"(INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES('週',2026,1,0,22))");
    study.Merge();
    laptop.Merge();
    study.Merge();
    const QStringList rows = study.AllRows();
    QCOMPARE(rows, laptop.AllRows());
    for (const auto& row : {u"h|2026-11-24|0|0|0|0"_s, u"f|2026-11-25|0|0|0|0"_s, u"u|2026-11-28|0|0|0|0"_s,
                            u"s|開校記念日|6|1|0|0"_s, u"k|週|2026|1|0|22"_s}) {
        QVERIFY2(rows.contains(row), qPrintable(row));
    }
    QCOMPARE(rows.size(), 15);
}

void TstRound::EqualRowsAreCounted() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("twice");
    study.Add("twice");
    study.Add("both");
    laptop.Add("both");
    study.Merge();
    laptop.Merge();
    QCOMPARE(laptop.Names(), (QStringList{u"both"_s, u"twice"_s, u"twice"_s}));
    laptop.Raw(
        R"(DELETE FROM "Kinenbi" WHERE "id" = (SELECT max("id") FROM "Kinenbi" WHERE "Name" = 'twice'))");
    laptop.Merge();
    study.Merge();
    QCOMPARE(study.Names(), (QStringList{u"both"_s, u"twice"_s}));
}

void TstRound::OfEqualRowsTheLastOneGoes() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    for (const char* name : {"twice", "other", "twice"}) {
        study.Add(name);
    }
    study.Merge();
    laptop.Merge();
    laptop.Raw(
        R"(DELETE FROM "Kinenbi" WHERE "id" = (SELECT max("id") FROM "Kinenbi" WHERE "Name" = 'twice'))");
    laptop.Merge();
    study.Merge();
    QCOMPARE(study.Raw(R"(SELECT "Name" FROM "Kinenbi" ORDER BY "id")"),
             (QStringList{u"twice"_s, u"other"_s}));
}

void TstRound::RowsComeInTheOrderInWhichTheyWereAdded() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    for (const char* name : {"z", "m", "a"}) {
        study.Add(name);
        study.Merge();
    }
    laptop.Merge();
    QCOMPARE(laptop.Raw(R"(SELECT "Name" FROM "Kinenbi" ORDER BY "id")"),
             (QStringList{u"z"_s, u"m"_s, u"a"_s}));
}

void TstRound::AnyBytesOfANameArrive() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    for (const char* bytes :
         {"X''", "X'00'", "X'61006200'", "X'FFFE'", "X'0A0D095C'", "X'EDA080'", "X'EFBBBF'"}) {
        study.Raw(QByteArray(R"(INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES(CAST()") +
                  bytes + " AS TEXT),0,1,1,0)");
    }
    study.Merge();
    laptop.Merge();
    const QByteArray select = R"(SELECT hex("Name") FROM "Kinenbi" ORDER BY 1)";
    QCOMPARE(laptop.Raw(select), study.Raw(select));
    QCOMPARE(laptop.Raw(select).size(), 7);
    QVERIFY(laptop.Plan().book.IsEmpty());
}

void TstRound::RowsThatOthersCouldNotShowStay() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Raw(R"(INSERT INTO "Holiday"("Date") VALUES('tomorrow'))");
    study.Raw(R"(INSERT INTO "Syukuzitu"("Name","Month","Day") VALUES('a',4294967296,1))");
    QCOMPARE(study.Merge().skipped, 2);
    laptop.Merge();
    QCOMPARE(laptop.AllRows().size(), 10);
    QCOMPARE(study.Merge().skipped, 2);
    QCOMPARE(study.AllRows().size(), 12);
}

void TstRound::WithoutNewsNothingIsReadOrWritten() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    study.Add("a");
    study.Merge();
    const Round second = study.Plan();
    QVERIFY(second.kept.IsEmpty());
    QVERIFY(second.book.IsEmpty());
    QVERIFY(second.ownPath.isEmpty());
    QVERIFY(PlanRound(study.Where(), second.report.when, second.files).isNothingNew);
    WriteAll(folder.filePath(u"other.tickwell-days"_s), "x");
    QVERIFY(!PlanRound(study.Where(), second.report.when, second.files).isNothingNew);
}

void TstRound::ANewDayDatabaseDeletesNothing() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Merge();
    laptop.Merge();
    const store::DayStore delivered;
    QVERIFY(QFile::remove(study.Where().book));
    QVERIFY(QFile::copy(delivered.Path(), study.Where().book));
    study.Merge();
    QCOMPARE(study.Names(), QStringList{u"a"_s});
    study.Delete("a");  // now it is deleted by somebody
    study.Merge();
    laptop.Merge();
    QVERIFY(study.Names().isEmpty());
    QVERIFY(laptop.Names().isEmpty());
}

void TstRound::AfterARestoredBackupNothingIsMissing() {
    const QTemporaryDir folder;
    const QTemporaryDir backup;
    SyncComputer study(folder.path(), u"study"_s);
    study.Add("a");
    study.Merge();
    for (const QString& path : {study.Where().book, study.Where().state}) {
        QVERIFY(QFile::copy(path, backup.filePath(QFileInfo(path).fileName())));
    }
    study.Add("b");
    study.Merge();
    for (const QString& path : {study.Where().book, study.Where().state}) {
        WriteAll(path, ReadAll(backup.filePath(QFileInfo(path).fileName())));
    }
    QCOMPARE(study.Names(), QStringList{u"a"_s});
    study.Merge();
    QCOMPARE(study.Names(), (QStringList{u"a"_s, u"b"_s}));
}

void TstRound::IfTheBookHasChangedMeanwhileNothingIsStored() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Merge();
    store::DayDatabase database(laptop.Where().book);
    const store::ChangeMark mark = database.Mark();
    const Round round = laptop.Plan();
    QCOMPARE(round.book.come.size(), std::size_t{1});
    laptop.Add("b");
    QVERIFY(!StoreRound(database, laptop.Where(), round, mark));
    QCOMPARE(laptop.Names(), QStringList{u"b"_s});
    QVERIFY(StoreRound(database, laptop.Where(), laptop.Plan(), database.Mark()));
    QCOMPARE(laptop.Names(), (QStringList{u"a"_s, u"b"_s}));
}

void TstRound::AMergeThatFailsChangesNothing() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Merge();
    const Round round = laptop.Plan();
    store::RawConnection state(laptop.Where().state);
    state.Run("ALTER TABLE elements RENAME TO others");  // the last statement of the transaction fails
    store::DayDatabase database(laptop.Where().book);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, StoreRound(database, laptop.Where(), round, database.Mark()));
    QVERIFY(laptop.Names().isEmpty());
    QVERIFY(!database.IsInTransaction());
    state.Run("ALTER TABLE others RENAME TO elements");
    QVERIFY(StoreRound(database, laptop.Where(), round, database.Mark()));
    QCOMPARE(laptop.Names(), QStringList{u"a"_s});
}

void TstRound::AClockADayBackDecidesNothing() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    laptop.SetClock(QDateTime(QDate(2026, 11, 22), QTime(12, 0)));
    study.Add("a");
    study.Merge();
    laptop.Merge();
    laptop.Delete("a");
    laptop.Merge();
    study.Merge();
    QVERIFY(study.Names().isEmpty());
    laptop.Add("a");
    laptop.Merge();
    study.Merge();
    QCOMPARE(study.Names(), QStringList{u"a"_s});
}

QTEST_GUILESS_MAIN(TstRound)
#include "tst_round.moc"
