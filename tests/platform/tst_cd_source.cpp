// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "platform/disc/cd_source.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Where discs are read from.
class TstCdSource : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AGivenNameIsUsed();
    void AMachineWithoutADriveHasNone();
    void FilesThatAreNoDrivesAreNotUsed();
};

void TstCdSource::AGivenNameIsUsed() {
    const QTemporaryDir folder;
    const QString image = folder.filePath(u"disc.cue"_s);
    QCOMPARE(CdSource(image), QString());
    WriteAll(image, "");
    QCOMPARE(CdSource(image), image);
    QCOMPARE(CdSource(u"/dev/zero"_s), u"/dev/zero"_s);
}

void TstCdSource::AMachineWithoutADriveHasNone() {
    const QTemporaryDir folder;
    QCOMPARE(CdSource(QString(), folder.path()), QString());
    QCOMPARE(CdSource(QString(), folder.filePath(u"nowhere"_s)), QString());
}

void TstCdSource::FilesThatAreNoDrivesAreNotUsed() {
    const QTemporaryDir folder;
    WriteAll(folder.filePath(u"cdrom"_s), "");
    WriteAll(folder.filePath(u"sr0"_s), "");
    QVERIFY(QFile::link(u"/dev/zero"_s, folder.filePath(u"sr1"_s)));
    QVERIFY(QFile::link(u"/no/such/drive"_s, folder.filePath(u"dvd"_s)));
    QCOMPARE(CdSource(QString(), folder.path()), QString());
}

QTEST_GUILESS_MAIN(TstCdSource)
#include "tst_cd_source.moc"
