// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "app/folder_setup.h"
#include "app/start_error.h"
#include "app/startup.h"
#include "core/errors.h"
#include "support/fake_settings_store.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

/// A complete program folder, and a settings store that can contain an invalid value.
struct Bench {
    QTemporaryDir dir;
    int opened = 0;  // number of times the settings were opened
    QString badFunction;
    QString masters;

    Bench() { CopyFiles(QStringLiteral(TICKWELL_MASTERS), dir.path(), RequiredFiles()); }

    Started Start() {
        return StartUp(
            dir.path(),
            [this] {
                ++opened;
                auto store = std::make_unique<FakeSettingsStore>();
                if (!badFunction.isEmpty()) {
                    store->Put(u"SetUp"_s, u"Function"_s, badFunction);
                }
                return store;
            },
            masters);
    }

    /// The reason why the start failed; empty on success.
    QString Reason() {
        try {
            Start();
            return QString();
        } catch (const RunTimeError& error) {
            return error.Reason();
        }
    }
    /// The text below the reason; empty if there is none.
    QString Remedy() {
        try {
            Start();
            return QString();
        } catch (const StartError& error) {
            return error.Remedy();
        }
    }
    QString PathOf(const QString& name) const { return QDir(dir.path()).canonicalPath() + u'/' + name; }
    void Remove(const QString& name) const { QFile::remove(dir.filePath(name)); }
};

}  // namespace

/// The steps of start-up.
class TstStartup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void EverythingThereStarts();
    void TheFolderBecomesTheCurrentOne();
    void EachMissingFileIsNamed_data();
    void EachMissingFileIsNamed();
    void TheFirstMissingFileIsTheOneNamed();
    void OnlyExistenceIsChecked();
    void ABrokenLinkCountsAsMissing();
    void ADatabaseOfAnotherKindIsRefused();
    void ACopyTakesTheMissingDatabasesPlace();
    void CopiesBesideASoundDatabaseAreRemoved();
    void AFailureNamesTheCopies_data();
    void AFailureNamesTheCopies();
    void OtherMissingFilesNameNoCopies();
    void FilesComeBeforeTheDatabaseAndTheDatabaseBeforeSettings();
    void ABadSettingIsNamed();
    void AMissingFolderIsNamed();
    void TheBoxSaysWhatIsMissing();
    void BelowAMissingFileStandsItsPathAndTheMaster_data();
    void BelowAMissingFileStandsItsPathAndTheMaster();
    void BelowADamagedDatabaseStandsItsPath();
    void BelowAFolderThatCannotBeEnteredStandsItsPath();
    void ARemedyIsGivenOnce();
};

void TstStartup::init() {
    QVERIFY(QDir::setCurrent(u"/"_s));
}

void TstStartup::EverythingThereStarts() {
    Bench bench;
    const Started started = bench.Start();
    QVERIFY(started.dayDatabase.IsOpen());
    QVERIFY(started.store != nullptr);
    QCOMPARE(started.settings.wipeSpeed, 25);
}

void TstStartup::TheFolderBecomesTheCurrentOne() {
    Bench bench;
    bench.Start();
    QCOMPARE(QDir::current().canonicalPath(), QDir(bench.dir.path()).canonicalPath());
}

void TstStartup::EachMissingFileIsNamed_data() {
    QTest::addColumn<QString>("name");
    for (const QString& name : RequiredFiles()) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TstStartup::EachMissingFileIsNamed() {
    QFETCH(QString, name);
    Bench bench;
    bench.Remove(name);
    QCOMPARE(bench.Reason(), name);
    QCOMPARE(bench.opened, 0);
}

void TstStartup::TheFirstMissingFileIsTheOneNamed() {
    Bench bench;
    for (const QString& name : RequiredFiles()) {
        bench.Remove(name);
    }
    for (const QString& name : RequiredFiles()) {
        QCOMPARE(bench.Reason(), name);
        WriteAll(bench.dir.filePath(name), "x"_ba);
    }
}

void TstStartup::OnlyExistenceIsChecked() {
    Bench bench;
    bench.Remove(u"TKW02.wav"_s);
    QVERIFY(QDir(bench.dir.path()).mkdir(u"TKW02.wav"_s));
    WriteAll(bench.dir.filePath(u"Help.hlp"_s), ""_ba);
    QCOMPARE(bench.Reason(), QString());
}

void TstStartup::ABrokenLinkCountsAsMissing() {
    Bench bench;
    bench.Remove(u"TKW02.wav"_s);
    QVERIFY(QFile::link(u"/no/such/file"_s, bench.dir.filePath(u"TKW02.wav"_s)));
    QCOMPARE(bench.Reason(), u"TKW02.wav"_s);
}

void TstStartup::ADatabaseOfAnotherKindIsRefused() {
    Bench bench;
    WriteAll(bench.dir.filePath(u"DayDate.mdb"_s), "this is no database"_ba);
    QVERIFY2(bench.Reason().startsWith(u"DayDate.mdb"_s), qPrintable(bench.Reason()));
    QCOMPARE(bench.opened, 0);
}

// Files as left behind by a compaction that was killed.
void TstStartup::ACopyTakesTheMissingDatabasesPlace() {
    for (const QString& name : {u"CopyDate.mdb"_s, u"BUDate.mdb"_s}) {
        Bench bench;
        QVERIFY(QFile::rename(bench.dir.filePath(u"DayDate.mdb"_s), bench.dir.filePath(name)));
        QCOMPARE(bench.Reason(), QString());
        QVERIFY(QFile::exists(bench.dir.filePath(u"DayDate.mdb"_s)));
        QVERIFY(!QFile::exists(bench.dir.filePath(name)));
    }
}

void TstStartup::CopiesBesideASoundDatabaseAreRemoved() {
    Bench bench;
    WriteAll(bench.dir.filePath(u"CopyDate.mdb"_s), "half done"_ba);
    WriteAll(bench.dir.filePath(u"BUDate.mdb"_s), ""_ba);
    QCOMPARE(bench.Reason(), QString());
    QVERIFY(!QFile::exists(bench.dir.filePath(u"CopyDate.mdb"_s)));
    QVERIFY(!QFile::exists(bench.dir.filePath(u"BUDate.mdb"_s)));
}

void TstStartup::AFailureNamesTheCopies_data() {
    QTest::addColumn<bool>("isThere");
    QTest::newRow("damaged") << true;
    QTest::newRow("missing") << false;
}

void TstStartup::AFailureNamesTheCopies() {
    QFETCH(bool, isThere);
    Bench bench;
    bench.Remove(u"DayDate.mdb"_s);
    if (isThere) {
        WriteAll(bench.dir.filePath(u"DayDate.mdb"_s), "this is no database"_ba);
    }
    WriteAll(bench.dir.filePath(u"CopyDate.mdb"_s), "nor is this"_ba);
    const QString reason = bench.Reason();
    QVERIFY2(reason.startsWith(u"DayDate.mdb\r\n"), qPrintable(reason));
    QVERIFY2(reason.endsWith(u"\r\nデータベースの控えが残っています：CopyDate.mdb"), qPrintable(reason));
    QVERIFY(QFile::exists(bench.dir.filePath(u"CopyDate.mdb"_s)));
}

void TstStartup::OtherMissingFilesNameNoCopies() {
    Bench bench;
    bench.Remove(u"TKW02.wav"_s);
    WriteAll(bench.dir.filePath(u"DayDate.mdb"_s), "this is no database"_ba);
    WriteAll(bench.dir.filePath(u"CopyDate.mdb"_s), "nor is this"_ba);
    QCOMPARE(bench.Reason(), u"TKW02.wav"_s);
}

void TstStartup::FilesComeBeforeTheDatabaseAndTheDatabaseBeforeSettings() {
    Bench bench;
    bench.badFunction = u"clock"_s;
    WriteAll(bench.dir.filePath(u"DayDate.mdb"_s), "this is no database"_ba);
    bench.Remove(u"TKW05.wav"_s);
    QCOMPARE(bench.Reason(), u"TKW05.wav"_s);
    WriteAll(bench.dir.filePath(u"TKW05.wav"_s), "x"_ba);
    QVERIFY(bench.Reason().startsWith(u"DayDate.mdb"_s));
    CopyFiles(QStringLiteral(TICKWELL_MASTERS), bench.dir.path(), {u"DayDate.mdb"_s});
    QVERIFY(bench.Reason().startsWith(u"[SetUp] Function=clock"_s));
}

void TstStartup::ABadSettingIsNamed() {
    Bench bench;
    bench.badFunction = u"99999999999"_s;
    QVERIFY2(bench.Reason().startsWith(u"[SetUp] Function=99999999999"_s), qPrintable(bench.Reason()));
}

void TstStartup::AMissingFolderIsNamed() {
    try {
        StartUp(u"/no/such/folder"_s, [] { return std::make_unique<FakeSettingsStore>(); });
        QFAIL("started without a folder");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"/no/such/folder"_s);
    }
}

void TstStartup::TheBoxSaysWhatIsMissing() {
    QCOMPARE(StartUpFailureText(u"TKW05.wav"_s),
             u"実行に必要なファイルまたは情報が見つかりません。\r\nTKW05.wav"_s);
}

void TstStartup::BelowAMissingFileStandsItsPathAndTheMaster_data() {
    EachMissingFileIsNamed_data();
}

void TstStartup::BelowAMissingFileStandsItsPathAndTheMaster() {
    QFETCH(QString, name);
    Bench bench;
    bench.Remove(name);
    const QString place = u"場所："_s + bench.PathOf(name) + u"\r\n";
    const QString alone = bench.Remedy();
    QVERIFY2(alone.startsWith(place) && alone.size() > place.size(), qPrintable(alone));
    const QString masters = QStringLiteral(TICKWELL_MASTERS);
    QVERIFY(!alone.contains(masters));
    bench.masters = masters;
    const QString withMaster = bench.Remedy();
    QVERIFY2(withMaster.startsWith(place), qPrintable(withMaster));
    QVERIFY2(withMaster.contains(masters + u'/' + name + u" をここにコピー"), qPrintable(withMaster));
    QCOMPARE(withMaster.contains(u"記念日がない"_s), name == u"DayDate.mdb"_s);
    bench.masters = QDir(bench.dir.path()).canonicalPath();  // the program's own folder has no other copy
    QCOMPARE(bench.Remedy(), alone);
}

void TstStartup::BelowADamagedDatabaseStandsItsPath() {
    Bench bench;
    WriteAll(bench.dir.filePath(u"DayDate.mdb"_s), "this is no database"_ba);
    const QString remedy = bench.Remedy();
    QVERIFY2(remedy.startsWith(u"場所："_s + bench.PathOf(u"DayDate.mdb"_s) + u"\r\n"), qPrintable(remedy));
    QVERIFY2(remedy.contains(u"控えと置き換えてください。"_s), qPrintable(remedy));
}

void TstStartup::BelowAFolderThatCannotBeEnteredStandsItsPath() {
    try {
        StartUp(u"/no/such/folder"_s, [] { return std::make_unique<FakeSettingsStore>(); });
        QFAIL("started without a folder");
    } catch (const StartError& error) {
        QVERIFY2(error.Remedy().startsWith(u"場所：/no/such/folder\r\n"_s), qPrintable(error.Remedy()));
        QVERIFY2(error.Remedy().contains(u"--folder"_s), qPrintable(error.Remedy()));
    }
}

void TstStartup::ARemedyIsGivenOnce() {
    try {
        WithRemedy(u"outer"_s, [] { WithRemedy(u"inner"_s, [] { throw RunTimeError(u"why"_s); }); });
        QFAIL("nothing was thrown");
    } catch (const StartError& error) {
        QCOMPARE(error.Reason(), u"why"_s);
        QCOMPARE(error.Remedy(), u"inner"_s);
    }
    QCOMPARE(StartUpFailureText(u"why"_s, u"remedy"_s),
             u"実行に必要なファイルまたは情報が見つかりません。\r\nwhy\r\n\r\nremedy"_s);
}

QTEST_GUILESS_MAIN(TstStartup)
#include "tst_startup.moc"
