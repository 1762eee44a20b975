// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "core/program_folder.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

/// The folder of the program's files.
class TstProgramFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EnteringALinkGivesItsTarget();
    void AFolderThatIsGoneIsAnError();
    void AFileIsNamedByItsAbsolutePath();
    void TextsForTheUserNameFilesWithoutTheFolder();
};

void TstProgramFolder::EnteringALinkGivesItsTarget() {
    const QTemporaryDir folder;
    const QString real = QDir(folder.path()).canonicalPath() + u"/real";
    const QString link = folder.filePath(u"link"_s);
    QVERIFY(QDir().mkdir(real) && QFile::link(real, link));
    const ProgramFolder entered = ProgramFolder::Entered(link);
    QCOMPARE(entered.Path(), real);
    QCOMPARE(QDir::currentPath(), real);
    QVERIFY(QDir::setCurrent(u"/"_s));
    entered.Enter();
    QCOMPARE(QDir::currentPath(), real);
    QVERIFY(QDir::setCurrent(u"/"_s));
}

void TstProgramFolder::AFolderThatIsGoneIsAnError() {
    const QString before = QDir::currentPath();
    try {
        ProgramFolder(u"/no/such/folder"_s).Enter();
        QFAIL("entered nothing");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"/no/such/folder"_s);
    }
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ProgramFolder::Entered(u"/no/such/folder"_s));
    QCOMPARE(QDir::currentPath(), before);
}

void TstProgramFolder::AFileIsNamedByItsAbsolutePath() {
    const ProgramFolder folder(u"/a b"_s);
    QCOMPARE(folder.PathOf(u"TKW00.wav"_s), u"/a b/TKW00.wav"_s);
    QCOMPARE(folder.PathOf(u"/elsewhere/TKW00.wav"_s), u"/elsewhere/TKW00.wav"_s);
}

void TstProgramFolder::TextsForTheUserNameFilesWithoutTheFolder() {
    const ProgramFolder folder(u"/a b"_s);
    QCOMPARE(folder.Shortened(u"/a b/DayDate.mdb\r\n/a b/CopyDate.mdb"_s), u"DayDate.mdb\r\nCopyDate.mdb"_s);
    QCOMPARE(folder.Shortened(u"/elsewhere/DayDate.mdb"_s), u"/elsewhere/DayDate.mdb"_s);
}

QTEST_GUILESS_MAIN(TstProgramFolder)
#include "tst_program_folder.moc"
