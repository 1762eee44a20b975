// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "app/program_folder.h"
#include "support/files.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Where the program that reads discs is looked for.
class TstDiscHelper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsInstalledInAFolderForHelpers();
    void OneBesideTheBinaryIsTakenFirst();
};

void TstDiscHelper::ItIsInstalledInAFolderForHelpers() {
    const QTemporaryDir dir;
    QCOMPARE(DiscHelperPath(dir.filePath(u"usr/bin"_s)), dir.filePath(u"usr/libexec/tickwell/tickwell-cd"_s));
}

void TstDiscHelper::OneBesideTheBinaryIsTakenFirst() {
    const QTemporaryDir dir;
    const QString installed = dir.filePath(u"libexec/tickwell"_s);
    QVERIFY(QDir().mkpath(dir.filePath(u"bin"_s)) && QDir().mkpath(installed));
    WriteAll(installed + u"/tickwell-cd", QByteArray());
    QCOMPARE(DiscHelperPath(dir.filePath(u"bin"_s)), installed + u"/tickwell-cd");
    WriteAll(dir.filePath(u"bin/tickwell-cd"_s), QByteArray());
    QCOMPARE(DiscHelperPath(dir.filePath(u"bin"_s)), dir.filePath(u"bin/tickwell-cd"_s));
}

QTEST_GUILESS_MAIN(TstDiscHelper)
#include "tst_disc_helper.moc"
