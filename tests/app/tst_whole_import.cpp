// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/whole_export_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

/// Importing everything.
class TstWholeImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnImportTakesEverythingAndTheSettingsAtTheNextStart();
    void WhatIsNotInTheFolderStays();
    void AFileThatIsNotSoundChangesNothing_data();
    void AFileThatIsNotSoundChangesNothing();
    void AFolderThatIsNoExportIsNamed();
    void ADayDatabaseInUseGivesTheImportUp();
    void ALaterImportReplacesWaitingSettings();
    void ALinkedSettingsFileIsKeptAsACopy();
    void AStartThatCannotFinishSaysSo();
};

void TstWholeImport::AnImportTakesEverythingAndTheSettingsAtTheNextStart() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    const QString source = Export(from, disk);
    const State before = to.Now();
    StageImport(to.Program(), source, disk);
    QCOMPARE(to.Now(), before);
    const store::CompactionEnd end = ApplyImport(to.Program(), disk);
    QCOMPARE(end.report->icon, MessageIcon::Information);
    QCOMPARE(end.fault, QString());
    State expected = from.Now();
    expected.settings = before.settings;
    QCOMPARE(to.Now(), expected);
    QCOMPARE(store::RawConnection(to.PathOf(u"DayDate.before-restore.mdb"_s))
                 .Run("SELECT * FROM Kinenbi ORDER BY id"),
             before.days);
    QCOMPARE(store::RawConnection(to.PathOf(u"Tools.before-restore.db"_s))
                 .Run("SELECT name FROM presets ORDER BY id"),
             before.timers);
    QCOMPARE(BytesOf(to.PathOf(u"Syukujitsu.before-restore.csv"_s)), before.list);
    StartAgain(to);
    QCOMPARE(to.Now(), from.Now());
    QCOMPARE(BytesOf(to.config + u"/TKW2.before-restore.ini"), before.settings);
    QCOMPARE(to.NewNames(), (QStringList{u"DayDate.before-restore.mdb"_s, u"Syukujitsu.before-restore.csv"_s,
                                         u"Tools.before-restore.db"_s}));
    StartAgain(to);
    QCOMPARE(to.Now(), from.Now());
}

void TstWholeImport::WhatIsNotInTheFolderStays() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    QVERIFY(QFile::remove(from.PathOf(u"Tools.db"_s)));
    QVERIFY(QFile::remove(from.PathOf(u"Syukujitsu.csv"_s)));
    const State before = to.Now();
    Import(to, Export(from, disk), disk);
    QCOMPARE(to.Now().timers, before.timers);
    QCOMPARE(to.Now().list, before.list);
    QVERIFY(to.Now().days != before.days);
}

void TstWholeImport::AFileThatIsNotSoundChangesNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a cut day database") << u"DayDate.mdb"_s << QByteArray("cut");
    QTest::newRow("a cut file of timers") << u"Tools.db"_s << QByteArray("cut");
    QTest::newRow("a cut list") << u"Syukujitsu.csv"_s << QByteArray("cut");
    QTest::newRow("another day database") << u"DayDate.mdb"_s << QByteArray(5000, 'x');
    QTest::newRow("settings of another type") << u"TKW2.ini"_s << QByteArray("[SetUp]\nOp_Speed=x\n");
    QTest::newRow("further settings of another type") << u"TKW2.ini"_s << QByteArray("[Backup]\nDaily=x\n");
    QTest::newRow("a place of another type") << u"TKW2.ini"_s << QByteArray("[SetUp]\nWin_Left=x\n");
    QTest::newRow("settings that are no text") << u"TKW2.ini"_s << QByteArray("[SetUp]\nA_Font=\xff\n");
}

void TstWholeImport::AFileThatIsNotSoundChangesNothing() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    const QString source = Export(from, disk);
    const QString path = source + u'/' + name;
    const QByteArray sound = BytesOf(path);
    SetBytes(path, bytes == "cut" ? sound.chopped(sound.size() / 2) : bytes);
    const State before = to.Now();
    const QString fault = FaultOf([&] { StageImport(to.Program(), source, disk); });
    QVERIFY2(fault.contains(path), qPrintable(fault));
    QCOMPARE(to.Now(), before);
    QCOMPARE(to.NewNames(), QStringList());
    StartAgain(to);
    QCOMPARE(to.Now(), before);
}

void TstWholeImport::AFolderThatIsNoExportIsNamed() {
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    const QString fault = FaultOf([&] { StageImport(to.Program(), to.dir.path(), disk); });
    QVERIFY2(fault.startsWith(u"設定ファイルを読み込めません。\r\n"_s + to.dir.path() + u"/TKW2.ini\r\n"),
             qPrintable(fault));
    const Place from(u"one"_s);
    const QString source = Export(from, disk);
    QVERIFY(QFile::remove(source + u"/DayDate.mdb"));
    QCOMPARE(FaultOf([&] { StageImport(to.Program(), source, disk); }),
             source + u"/DayDate.mdb\r\nデータベースのファイルがありません。"_s);
    QCOMPARE(to.NewNames(), QStringList());
}

void TstWholeImport::ADayDatabaseInUseGivesTheImportUp() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    StageImport(to.Program(), Export(from, disk), disk);
    const State before = to.Now();
    store::RawConnection other(to.PathOf(u"DayDate.mdb"_s));
    other.Run("BEGIN IMMEDIATE");
    const store::CompactionEnd end = ApplyImport(to.Program(), disk);
    other.Run("COMMIT");
    QCOMPARE(end.report->icon, MessageIcon::Exclamation);
    QVERIFY(end.report->text.startsWith(u"読み込めませんでした。何も変わっていません。\r\n\r\n"));
    QCOMPARE(to.Now(), before);
    QCOMPARE(to.NewNames(), QStringList());
}

void TstWholeImport::ALaterImportReplacesWaitingSettings() {
    const Place one(u"one"_s);
    const Place other(u"other"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    Import(to, Export(one, disk), disk);
    Import(to, Export(other, disk), disk);
    StartAgain(to);
    QCOMPARE(to.Now(), other.Now());
}

void TstWholeImport::ALinkedSettingsFileIsKeptAsACopy() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    const QString target = to.dir.filePath(u"dotfiles.ini"_s);
    QVERIFY(QFile::rename(to.settings, target));
    QVERIFY(QFile::link(target, to.settings));
    const QByteArray before = BytesOf(target);
    Import(to, Export(from, disk), disk);
    StartAgain(to);
    QVERIFY(QFileInfo(to.settings).isSymLink());
    QCOMPARE(BytesOf(target), BytesOf(from.settings));
    QCOMPARE(BytesOf(to.config + u"/TKW2.before-restore.ini"), before);
}

void TstWholeImport::AStartThatCannotFinishSaysSo() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk disk;
    StageImport(to.Program(), Export(from, disk), disk);
    store::RawConnection other(to.PathOf(u"DayDate.mdb"_s));
    other.Run("BEGIN IMMEDIATE");
    const State before = to.Now();
    QVERIFY(!FaultOf([&] { StartAgain(to); }).isEmpty());
    QCOMPARE(to.Now(), before);
    other.Run("COMMIT");
    StartAgain(to);
    QCOMPARE(to.Now(), from.Now());
}

QTEST_GUILESS_MAIN(TstWholeImport)
#include "tst_whole_import.moc"
