// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "platform/time/system_time_jumps.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    QTemporaryDir folder;
    QString zone = folder.filePath(u"localtime"_s);
    int told = 0;
};

/// Lets the event loop process all pending events.
void Settle() {
    for (int turn = 0; turn < 10; ++turn) {
        QCoreApplication::processEvents();
    }
}

}  // namespace

/// Notification of a zone change. Tests do not set the machine's clock.
class TstSystemTimeJumps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AZoneChangeIsReported_data();
    void AZoneChangeIsReported();
    void TheNextChangeIsReportedAsWell();
    void OtherFilesOfTheFolderAreIgnored();
    void WithoutAListenerNothingHappens();
    void AMissingFolderIsIgnored();
};

void TstSystemTimeJumps::AZoneChangeIsReported_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"a link is renamed over it", "a link is made anew", "it is written in place"}) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void TstSystemTimeJumps::AZoneChangeIsReported() {
    QFETCH(QString, way);
    Bench bench;
    if (way.startsWith(u"it is")) {
        WriteAll(bench.zone, "Asia/Tokyo");
    } else {
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/Asia/Tokyo"_s, bench.zone));
    }
    SystemTimeJumps jumps(bench.zone);
    jumps.Listen([&] { ++bench.told; });
    Settle();
    QCOMPARE(bench.told, 0);
    if (way.startsWith(u"it is")) {
        WriteAll(bench.zone, "Europe/Vienna");
    } else if (way.endsWith(u"anew")) {
        QVERIFY(QFile::remove(bench.zone));
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/Europe/Vienna"_s, bench.zone));
    } else {
        const QString other = bench.folder.filePath(u"localtime.new"_s);
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/Europe/Vienna"_s, other));
        QCOMPARE(std::rename(QFile::encodeName(other).constData(), QFile::encodeName(bench.zone).constData()),
                 0);
    }
    QTRY_VERIFY(bench.told > 0);
}

void TstSystemTimeJumps::TheNextChangeIsReportedAsWell() {
    Bench bench;
    SystemTimeJumps jumps(bench.zone);  // no zone file exists yet
    jumps.Listen([&] { ++bench.told; });
    WriteAll(bench.zone, "Asia/Tokyo");
    QTRY_VERIFY(bench.told > 0);
    const int before = bench.told;
    QVERIFY(QFile::remove(bench.zone));
    WriteAll(bench.zone, "Europe/Vienna");
    QTRY_VERIFY(bench.told > before);
}

void TstSystemTimeJumps::OtherFilesOfTheFolderAreIgnored() {
    Bench bench;
    SystemTimeJumps jumps(bench.zone);
    jumps.Listen([&] { ++bench.told; });
    for (const QString& name : {u"localtime2"_s, u"local"_s, u"mtab"_s}) {
        WriteAll(bench.folder.filePath(name), "");
    }
    Settle();
    QCOMPARE(bench.told, 0);
    WriteAll(bench.zone, "");  // the folder is still watched
    QTRY_VERIFY(bench.told > 0);
}

void TstSystemTimeJumps::WithoutAListenerNothingHappens() {
    Bench bench;
    SystemTimeJumps jumps(bench.zone);
    jumps.Listen([&] { ++bench.told; });
    jumps.Listen(nullptr);
    WriteAll(bench.zone, "");
    Settle();
    QCOMPARE(bench.told, 0);
}

void TstSystemTimeJumps::AMissingFolderIsIgnored() {
    Bench bench;
    SystemTimeJumps jumps(bench.folder.filePath(u"none/localtime"_s));
    jumps.Listen([&] { ++bench.told; });
    Settle();
    QCOMPARE(bench.told, 0);
}

QTEST_GUILESS_MAIN(TstSystemTimeJumps)
#include "tst_system_time_jumps.moc"
