// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QTest>

#include "support/files.h"
#include "sync/day_file.h"
#include "sync/sync_place.h"

using namespace tickwell;
using namespace tickwell::sync;
using namespace Qt::StringLiterals;

/// What a merge reads and writes in its folder, and what it leaves alone.
class TstRoundFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ALostFolderIsReported();
    void OtherAndDamagedFilesAreNamedAndLeftAlone_data();
    void OtherAndDamagedFilesAreNamedAndLeftAlone();
    void AConflictCopyIsReadToo();
    void AComputerOfTheSameNameIsNotOverwritten();
    void TheOwnFileIsRepaired();
    void AComputerIsRenamed();
    void ADamagedStateLosesNoRow();
};

void TstRoundFiles::ALostFolderIsReported() {
    SyncComputer study(u"/nonexistent/folder"_s, u"study"_s);
    const Round round = study.Plan();
    QCOMPARE(round.report.problem, u"フォルダーがありません。"_s);
    QVERIFY(!round.report.when.isValid());
    study.Where().folder.clear();
    QCOMPARE(study.Plan().report.problem, u"フォルダーが選ばれていません。"_s);
    QVERIFY(round.kept.IsEmpty() && round.book.IsEmpty() && round.ownPath.isEmpty());
}

void TstRoundFiles::OtherAndDamagedFilesAreNamedAndLeftAlone_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("why");
    QTest::newRow("foreign") << u"foreign"_s << u"このプログラムのファイルではありません。"_s;
    QTest::newRow("newer") << u"newer"_s << u"新しい版のプログラムのファイルです。"_s;
    QTest::newRow("cut off") << u"cut"_s << u"途中で切れているか、壊れています。"_s;
    QTest::newRow("50 MB") << u"large"_s << u"ファイルが大きすぎます（32768 KiBまで）。"_s;
    QTest::newRow("a folder") << u"folder"_s << u"通常のファイルではありません。"_s;
    QTest::newRow("a pipe") << u"pipe"_s << u"通常のファイルではありません。"_s;
}

void TstRoundFiles::OtherAndDamagedFilesAreNamedAndLeftAlone() {
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

void TstRoundFiles::AConflictCopyIsReadToo() {
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

void TstRoundFiles::AComputerOfTheSameNameIsNotOverwritten() {
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

void TstRoundFiles::TheOwnFileIsRepaired() {
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
    // A damaged file that another computer has begun
    QByteArray others = WriteDayFile({7, u"study"_s, {}});
    others.chop(3);
    WriteAll(study.OwnFile(), others);
    QCOMPARE(study.Merge().left.size(), 1);
    QCOMPARE(ReadAll(study.OwnFile()), others);
    // Before this computer has ever written its file, a damaged one may be another's.
    SyncComputer laptop(folder.path(), u"laptop"_s);
    WriteAll(laptop.OwnFile(), "");
    QCOMPARE(laptop.Merge().left.size(), 2);
    QCOMPARE(ReadAll(laptop.OwnFile()), "");
}

void TstRoundFiles::AComputerIsRenamed() {
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

void TstRoundFiles::ADamagedStateLosesNoRow() {
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

QTEST_GUILESS_MAIN(TstRoundFiles)
#include "tst_round_files.moc"
