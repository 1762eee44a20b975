// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "shell/tool_launcher.h"
#include "support/fake_program_starter.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

/// The companion tools of the program's folder.
class TstToolLauncher : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryToolHasItsFile_data();
    void EveryToolHasItsFile();
    void ToolsWhoseFileExistsArePresent();
    void AToolStartsInTheFolderWithItsArgument();
    void AToolThatDoesNotStartIsAnError();
};

void TstToolLauncher::EveryToolHasItsFile_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("file");
    QTest::newRow("before the first") << 0 << QString();
    QTest::newRow("first") << 1 << u"KT01.exe"_s;
    QTest::newRow("eye check") << 6 << u"KT06.exe"_s;
    QTest::newRow("two digits") << 10 << u"KT10.exe"_s;
    QTest::newRow("last") << 13 << u"KT13.exe"_s;
    QTest::newRow("after the last") << 14 << QString();
}

void TstToolLauncher::EveryToolHasItsFile() {
    QFETCH(int, index);
    QTEST(ToolFileName(index), "file");
}

void TstToolLauncher::ToolsWhoseFileExistsArePresent() {
    const QTemporaryDir folder;
    FakeProgramStarter starter;
    const ToolLauncher tools(ProgramFolder(folder.path()), starter);
    QCOMPARE(tools.Present(), QList<int>());
    WriteAll(folder.filePath(u"KT13.exe"_s), "");
    WriteAll(folder.filePath(u"KT02.exe"_s), "");
    WriteAll(folder.filePath(u"KT14.exe"_s), "");
    WriteAll(folder.filePath(u"kt01.exe"_s), "");
    QCOMPARE(tools.Present(), (QList<int>{2, 13}));
}

void TstToolLauncher::AToolStartsInTheFolderWithItsArgument() {
    FakeProgramStarter starter;
    ToolLauncher(ProgramFolder(u"/a b"_s), starter).Start(9);
    QCOMPARE(starter.started,
             (QList<FakeProgramStarter::Started>{{u"/a b/KT09.exe"_s, {u"VeskOnly"_s}, u"/a b"_s}}));
}

void TstToolLauncher::AToolThatDoesNotStartIsAnError() {
    FakeProgramStarter starter;
    starter.starts = false;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ToolLauncher(ProgramFolder(u"/a"_s), starter).Start(1));
}

QTEST_GUILESS_MAIN(TstToolLauncher)
#include "tst_tool_launcher.moc"
