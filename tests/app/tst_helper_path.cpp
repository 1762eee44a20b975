// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "app/folder_setup.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// Where the program looks for its helpers for discs and printing.
class TstHelperPath : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsInstalledInAFolderForHelpers_data() { Names(); }
    void ItIsInstalledInAFolderForHelpers();
    void OneBesideTheBinaryIsTakenFirst_data() { Names(); }
    void OneBesideTheBinaryIsTakenFirst();

private:
    static void Names();
};

void TstHelperPath::Names() {
    QTest::addColumn<QString>("name");
    QTest::newRow("discs") << u"tickwell-cd"_s;
    QTest::newRow("calendars") << u"tickwell-ical"_s;
    QTest::newRow("printing") << u"tickwell-print"_s;
    QTest::newRow("sound") << u"tickwell-sound"_s;
}

void TstHelperPath::ItIsInstalledInAFolderForHelpers() {
    QFETCH(QString, name);
    const QTemporaryDir dir;
    QCOMPARE(HelperPath(dir.filePath(u"usr/bin"_s), name), dir.filePath(u"usr/libexec/tickwell/"_s + name));
}

void TstHelperPath::OneBesideTheBinaryIsTakenFirst() {
    QFETCH(QString, name);
    const QTemporaryDir dir;
    const QString installed = dir.filePath(u"libexec/tickwell"_s);
    QVERIFY(QDir().mkpath(dir.filePath(u"bin"_s)) && QDir().mkpath(installed));
    WriteAll(installed + u'/' + name, QByteArray());
    QCOMPARE(HelperPath(dir.filePath(u"bin"_s), name), installed + u'/' + name);
    WriteAll(dir.filePath(u"bin/"_s + name), QByteArray());
    QCOMPARE(HelperPath(dir.filePath(u"bin"_s), name), dir.filePath(u"bin/"_s + name));
}

QTEST_GUILESS_MAIN(TstHelperPath)
#include "tst_helper_path.moc"
