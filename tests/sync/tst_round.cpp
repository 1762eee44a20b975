// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QTest>

#include "core/errors.h"
#include "support/files.h"
#include "sync/day_file.h"
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
    void RowsComeInTheOrderInWhichTheyWereAdded();
    void AnyBytesOfANameArrive();
    void RowsThatOthersCouldNotShowStay();
    void WithoutNewsNothingIsReadOrWritten();
    void ALostFolderIsReported();
    void OtherAndDamagedFilesAreNamedAndLeftAlone_data();
    void OtherAndDamagedFilesAreNamedAndLeftAlone();
    void AConflictCopyIsReadToo();
    void AComputerOfTheSameNameIsNotOverwritten();
    void TheOwnFileIsRepaired();
    void AComputerIsRenamed();
    void ADamagedStateLosesNoRow();
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

void TstRound::ALostFolderIsReported() {
    SyncComputer study(u"/nonexistent/folder"_s, u"study"_s);
    const Round round = study.Plan();
    QCOMPARE(round.report.problem, u"フォルダーがありません。"_s);
    QVERIFY(!round.report.when.isValid());
    study.Where().folder.clear();
    QCOMPARE(study.Plan().report.problem, u"フォルダーが選ばれていません。"_s);
    QVERIFY(round.kept.IsEmpty() && round.book.IsEmpty() && round.ownPath.isEmpty());
}

void TstRound::OtherAndDamagedFilesAreNamedAndLeftAlone_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("why");
    QTest::newRow("foreign") << u"foreign"_s << u"このプログラムのファイルではありません。"_s;
    QTest::newRow("newer") << u"newer"_s << u"新しい版のプログラムのファイルです。"_s;
    QTest::newRow("cut off") << u"cut"_s << u"途中で切れているか、壊れています。"_s;
    QTest::newRow("50 MB") << u"large"_s << u"ファイルが大きすぎます（32768 KiBまで）。"_s;
    QTest::newRow("a folder") << u"folder"_s << u"通常のファイルではありません。"_s;
    QTest::newRow("a pipe") << u"pipe"_s << u"通常のファイルではありません。"_s;
}

void TstRound::OtherAndDamagedFilesAreNamedAndLeftAlone() {
    QFETCH(const QString, kind);
    QFETCH(const QString, why);
    const QTemporaryDir folder;
    const QString name = u"a other.tickwell-days"_s;
    const QString path = folder.filePath(name);
    SyncComputer study(folder.path(), u"study"_s);
    study.Add("a");
    if (kind == u"pipe") {
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else if (kind == u"folder") {
        QVERIFY(QDir().mkpath(path));
    } else {
        QByteArray bytes = WriteDayFile({7, u"other"_s, {}});
        if (kind == u"cut") {
            bytes.chop(5);
        }
        WriteAll(path, kind == u"foreign" ? "text\n" : kind == u"newer" ? "Tickwell days 2\n" : bytes);
        QVERIFY(kind != u"large" || QFile::resize(path, 50'000'000));
    }
    const QFileInfo before(path);
    const Report report = study.Merge();
    QCOMPARE(report.left, (QList<LeftFile>{{name, why}}));
    QVERIFY(report.problem.isEmpty());
    QCOMPARE(QFileInfo(path).size(), before.size());
    QCOMPARE(QFileInfo(path).lastModified(), before.lastModified());
    QVERIFY(QFileInfo::exists(study.OwnFile()));
    QCOMPARE(study.Names(), QStringList{u"a"_s});
}

void TstRound::AConflictCopyIsReadToo() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Merge();
    QVERIFY(QFile::rename(study.OwnFile(), folder.filePath(u"study (conflict 2026-11-23).tickwell-days"_s)));
    study.Add("b");
    QCOMPARE(study.Merge().computers, 1);
    QCOMPARE(laptop.Merge().computers, 2);
    QCOMPARE(laptop.Names(), (QStringList{u"a"_s, u"b"_s}));
}

void TstRound::AComputerOfTheSameNameIsNotOverwritten() {
    const QTemporaryDir folder;
    SyncComputer first(folder.path(), u"study"_s);
    SyncComputer second(folder.path(), u"study"_s);
    first.Add("a");
    second.Add("b");
    first.Merge();
    const QByteArray before = ReadAll(first.OwnFile());
    const Report report = second.Merge();
    QCOMPARE(report.left.size(), 1);
    QCOMPARE(report.left.first().name, u"study.tickwell-days"_s);
    QVERIFY(report.left.first().why.startsWith(u"同じ名前の別のコンピューターの"));
    QCOMPARE(ReadAll(first.OwnFile()), before);
    QCOMPARE(second.Names(), (QStringList{u"a"_s, u"b"_s}));  // what the other has is known all the same
    second.Where().computer = u"study 2"_s;
    QVERIFY(second.Merge().left.isEmpty());
    first.Merge();
    QCOMPARE(first.Names(), (QStringList{u"a"_s, u"b"_s}));
}

void TstRound::TheOwnFileIsRepaired() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    study.Add("a");
    study.Merge();
    const QByteArray whole = ReadAll(study.OwnFile());
    for (const qsizetype size : {qsizetype{0}, qsizetype{10}, qsizetype{60}, whole.size() - 1}) {
        WriteAll(study.OwnFile(), whole.first(size));
        QVERIFY(study.Merge().left.isEmpty());
        QCOMPARE(ReadAll(study.OwnFile()), whole);
    }
    QVERIFY(QFile::remove(study.OwnFile()));
    study.Merge();
    QCOMPARE(ReadAll(study.OwnFile()), whole);
    // A file of somebody else that has taken the name
    WriteAll(study.OwnFile(), "Dear reader,\n");
    QCOMPARE(study.Merge().left.size(), 1);
    QCOMPARE(ReadAll(study.OwnFile()), "Dear reader,\n");
    // Before this computer has ever written its file, a damaged one may be another's.
    SyncComputer laptop(folder.path(), u"laptop"_s);
    WriteAll(laptop.OwnFile(), "");
    QCOMPARE(laptop.Merge().left.size(), 2);
    QCOMPARE(ReadAll(laptop.OwnFile()), "");
}

void TstRound::AComputerIsRenamed() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    study.Add("a");
    study.Merge();
    study.Where().computer = u"desk"_s;
    study.Delete("a");
    QCOMPARE(study.Merge().computers, 1);
    study.Merge();
    QVERIFY(study.Names().isEmpty());
    SyncComputer laptop(folder.path(), u"laptop"_s);
    laptop.Merge();
    QVERIFY(laptop.Names().isEmpty());
}

void TstRound::ADamagedStateLosesNoRow() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Add("a");
    study.Merge();
    laptop.Merge();
    WriteAll(study.Where().state, "no database");
    study.Add("b");
    const Report report = study.Merge();
    QCOMPARE(report.left.size(), 2);
    QVERIFY(report.left.first().name.endsWith(u"DaySync.damaged.db"));
    QCOMPARE(study.Names(), (QStringList{u"a"_s, u"b"_s}));
    study.Where().computer = u"study 2"_s;  // the old name is that of the lost state
    study.Merge();
    laptop.Merge();
    QCOMPARE(laptop.Names(), (QStringList{u"a"_s, u"b"_s}));
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
