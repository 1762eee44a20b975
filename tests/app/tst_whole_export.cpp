// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/whole_export_bench.h"
#include "store/every_step_disk.h"
#include "store/full_disk.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

/// Exporting everything.
class TstWholeExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnExportHasAllFiles();
    void OnlyWhatIsThereIsExported();
    void AnExportOverwritesNothing();
    void AnExportThatFailsLeavesNothing_data();
    void AnExportThatFailsLeavesNothing();
    void AFullDiskLeavesNothing();
    void ADamagedFileIsNamedByTheExport_data();
    void ADamagedFileIsNamedByTheExport();
};

void TstWholeExport::AnExportHasAllFiles() {
    const Place place(u"one"_s);
    store::PosixStoreDisk disk;
    const QString path = Export(place, disk);
    QCOMPARE(path, place.dir.filePath(u"Tickwell-2026-11-22"_s));
    QCOMPARE(QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             kAllFiles);
    QCOMPARE(BytesOf(path + u"/TKW2.ini"), BytesOf(place.settings));
    QCOMPARE(BytesOf(path + u"/Syukujitsu.csv"), place.Now().list);
    QCOMPARE(store::RawConnection(path + u"/DayDate.mdb").Run("SELECT * FROM Kinenbi ORDER BY id"),
             place.Now().days);
    QCOMPARE(store::RawConnection(path + u"/Tools.db").Run("SELECT name FROM presets ORDER BY id"),
             place.Now().timers);
    QCOMPARE(QFile::permissions(path + u"/TKW2.ini"),
             QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
}

void TstWholeExport::OnlyWhatIsThereIsExported() {
    const Place place(u"one"_s);
    store::PosixStoreDisk disk;
    QVERIFY(QFile::remove(place.PathOf(u"Tools.db"_s)));
    QVERIFY(QFile::remove(place.PathOf(u"Syukujitsu.csv"_s)));
    QCOMPARE(QDir(Export(place, disk)).entryList(QDir::Files, QDir::Name),
             (QStringList{u"DayDate.mdb"_s, u"TKW2.ini"_s}));
    SetBytes(place.PathOf(u"Tools.db"_s), {});
    QCOMPARE(QDir(Export(place, disk)).entryList(QDir::Files, QDir::Name),
             (QStringList{u"DayDate.mdb"_s, u"TKW2.ini"_s}));
}

void TstWholeExport::AnExportOverwritesNothing() {
    const Place place(u"one"_s);
    store::PosixStoreDisk disk;
    QVERIFY(QDir(place.dir.path()).mkdir(u"Tickwell-2026-11-22"_s));
    QCOMPARE(Export(place, disk), place.dir.filePath(u"Tickwell-2026-11-22.2"_s));
    QCOMPARE(Export(place, disk), place.dir.filePath(u"Tickwell-2026-11-22.3"_s));
    QCOMPARE(QDir(place.dir.filePath(u"Tickwell-2026-11-22"_s)).isEmpty(), true);
}

void TstWholeExport::AnExportThatFailsLeavesNothing_data() {
    QTest::addColumn<int>("step");
    const Place place(u"one"_s);
    store::EveryStepDisk disk([](int, bool) {});
    Export(place, disk);
    for (int step = 1; step < disk.Steps().size(); ++step) {  // after the last one the folder is in place
        QTest::newRow(qPrintable(QString::number(step) + u' ' + disk.Steps().at(step - 1))) << step;
    }
}

void TstWholeExport::AnExportThatFailsLeavesNothing() {
    QFETCH(int, step);
    const Place place(u"one"_s);
    const State before = place.Now();
    store::EveryStepDisk disk([step](int now, bool isDone) {
        if (now == step && !isDone) {
            throw store::DiskError(u"here"_s, ENOSPC);
        }
    });
    QCOMPARE(FaultOf([&] { Export(place, disk); }), u"here\r\nディスクの空き容量が足りません。"_s);
    QCOMPARE(EntriesOf(place.dir.path()), (QStringList{u"config"_s, u"program"_s}));
    QCOMPARE(place.Now(), before);
}

void TstWholeExport::AFullDiskLeavesNothing() {
    const Place place(u"one"_s);
    store::PosixStoreDisk disk;
    {
        const store::FullDisk full(8192);
        QVERIFY(!FaultOf([&] { Export(place, disk); }).isEmpty());
    }
    QCOMPARE(EntriesOf(place.dir.path()), (QStringList{u"config"_s, u"program"_s}));
}

void TstWholeExport::ADamagedFileIsNamedByTheExport_data() {
    QTest::addColumn<QString>("name");
    for (const QString& name : kAllFiles) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TstWholeExport::ADamagedFileIsNamedByTheExport() {
    QFETCH(QString, name);
    const Place place(u"one"_s);
    store::PosixStoreDisk disk;
    const QString path = name == u"TKW2.ini" ? place.settings : place.PathOf(name);
    SetBytes(path, name == u"TKW2.ini" ? QByteArray("[SetUp]\nOp_Speed=x\n") : QByteArray(3000, 'x'));
    const QString fault = FaultOf([&] { Export(place, disk); });
    QVERIFY2(fault.contains(path), qPrintable(fault));
    QCOMPARE(EntriesOf(place.dir.path()), (QStringList{u"config"_s, u"program"_s}));
}

QTEST_GUILESS_MAIN(TstWholeExport)
#include "tst_whole_export.moc"
