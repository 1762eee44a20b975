// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDateTime>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "app/folder_setup.h"
#include "core/errors.h"
#include "platform/files/unfinished_files.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

/// A folder with masters, and a path for the program folder.
struct Bench {
    QTemporaryDir dir;
    QString masters = dir.filePath(u"masters"_s);
    QString folder = dir.filePath(u"data/tickwell"_s);

    Bench() {
        QDir(dir.path()).mkdir(u"masters"_s);
        CopyFiles(QStringLiteral(TICKWELL_MASTERS), masters, RequiredFiles());
    }

    /// Replaces a master by a newer version, like an upgrade.
    void Renew(const QString& name, const QByteArray& bytes) const { WriteAll(masters + u'/' + name, bytes); }
    QByteArray Here(const QString& name) const { return ReadAll(folder + u'/' + name); }
    QStringList Listing() const { return QDir(folder).entryList(QDir::Files); }
};

int Refused(const QString& folder, const QString& masters) {
    try {
        PrepareFolder(folder, masters);
        return 1;
    } catch (const RunTimeError&) {
        return 0;
    }
}

}  // namespace

/// The program's folder.
class TstFolderSetup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheFolderIsChosenInOrder();
    void APortableFolderMustBeWritable();
    void AnotherStartFindsTheSameFolder_data();
    void AnotherStartFindsTheSameFolder();
    void MastersAreBesideTheBinaryOrInShare();
    void ANewFolderIsFilled();
    void HelpAndSoundsFollowNewerMasters();
    void WhatTheUserChangedStays();
    void TheDayDatabaseIsNeverRefreshed();
    void AFileTheUserRemovedIsNotBroughtBack();
    void TheMastersOwnFolderIsLeftAlone();
    void AFullDiskLeavesNoHalfFilledFolder();
    void FilesLeftByKilledStartsAreRemoved();
    void AFolderThatIsBeingFilledIsLeftAlone();
    void OnlyTheUserHasAccess();
    void AReplacedCopyIsNeitherReadNorOverwritten_data();
    void AReplacedCopyIsNeitherReadNorOverwritten();
    void AFolderThatCannotBeCreatedIsAnError();
    void AMissingMasterIsNamedAndNothingIsMade();
};

void TstFolderSetup::TheFolderIsChosenInOrder() {
    const Bench bench;
    const QString portable = bench.masters;
    QCOMPARE(ChooseFolder({u"/named"_s, u"/environment"_s, portable, u"/data"_s}), u"/named"_s);
    QCOMPARE(ChooseFolder({QString(), u"/environment"_s, portable, u"/data"_s}), u"/environment"_s);
    QCOMPARE(ChooseFolder({QString(), QString(), portable, u"/data"_s}), portable);
    QCOMPARE(ChooseFolder({QString(), QString(), bench.dir.path(), u"/data"_s}), u"/data/tickwell"_s);
    QCOMPARE(ChooseFolder({u"named"_s, QString(), QString(), QString()}), QDir::currentPath() + u"/named"_s);
}

void TstFolderSetup::APortableFolderMustBeWritable() {
    const Bench bench;
    QVERIFY(QFile::setPermissions(bench.dir.path(), QFile::ReadOther | QFile::ExeOther | QFile::ReadOwner |
                                                        QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(QFile::setPermissions(bench.masters, QFile::ReadOther | QFile::ExeOther | QFile::ReadOwner |
                                                     QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(InChild([&] {
                 return BecomeNobody() && ChooseFolder({QString(), QString(), bench.masters, u"/data"_s}) ==
                                              u"/data/tickwell"_s
                            ? 0
                            : 1;
             }),
             0);
}

void TstFolderSetup::AnotherStartFindsTheSameFolder_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<bool>("isPortable");
    QTest::addColumn<QString>("named");  // value of --folder; empty: no such option
    QTest::newRow("the user's data folder") << QString() << QString() << false << QString();
    QTest::newRow("the binary's own folder") << QString() << QString() << true << QString();
    QTest::newRow("another one") << u"other"_s << QString() << false << u"other"_s;
    QTest::newRow("another than the binary's") << u"other"_s << QString() << true << u"other"_s;
    QTest::newRow("that of the environment") << QString() << u"other"_s << false << u"other"_s;
    QTest::newRow("the user's, though named") << u"data/tickwell"_s << QString() << false << QString();
    QTest::newRow("the user's, against the environment")
        << u"data/tickwell"_s << u"other"_s << false << u"data/tickwell"_s;
    QTest::newRow("the user's, by another way")
        << u"other/../data/tickwell"_s << QString() << false << QString();
}

void TstFolderSetup::AnotherStartFindsTheSameFolder() {
    QFETCH(QString, argument);
    QFETCH(QString, environment);
    QFETCH(bool, isPortable);
    QFETCH(QString, named);
    const Bench bench;
    const auto within = [&](const QString& name) { return name.isEmpty() ? name : bench.dir.filePath(name); };
    QVERIFY(QDir(bench.dir.path()).mkpath(u"data/tickwell"_s) && QDir(bench.dir.path()).mkpath(u"other"_s));
    const FolderChoices choices{within(argument), within(environment),
                                isPortable ? bench.masters : bench.dir.path(), within(u"data"_s)};
    QStringList expected{u"/usr/bin/tickwell"_s};
    if (!named.isEmpty()) {
        expected << u"--folder"_s << within(named);
    }
    QCOMPARE(StartingCommand(u"/usr/bin/tickwell"_s, choices), expected);
}

void TstFolderSetup::MastersAreBesideTheBinaryOrInShare() {
    const Bench bench;
    QCOMPARE(MastersFolder(bench.masters), bench.masters);
    const QString shared = bench.dir.filePath(u"usr/share/tickwell"_s);
    QVERIFY(QDir().mkpath(shared) && QDir().mkpath(bench.dir.filePath(u"usr/bin"_s)));
    QCOMPARE(MastersFolder(bench.dir.filePath(u"usr/bin"_s)), QString());
    CopyFiles(bench.masters, shared, {u"DayDate.mdb"_s});
    QCOMPARE(MastersFolder(bench.dir.filePath(u"usr/bin"_s)), shared);
}

void TstFolderSetup::ANewFolderIsFilled() {
    const Bench bench;
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(bench.Listing(), RequiredFiles());
    for (const QString& name : RequiredFiles()) {
        QCOMPARE(bench.Here(name), ReadAll(bench.masters + u'/' + name));
        QVERIFY(!bench.Here(name).isEmpty());
    }
    QCOMPARE(QDir(bench.dir.filePath(u"data"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"tickwell"_s});
}

void TstFolderSetup::HelpAndSoundsFollowNewerMasters() {
    const Bench bench;
    PrepareFolder(bench.folder, bench.masters);
    bench.Renew(u"Help.hlp"_s, "new help"_ba);
    bench.Renew(u"TKW03.wav"_s, "new sound"_ba);
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(bench.Here(u"Help.hlp"_s), "new help"_ba);
    QCOMPARE(bench.Here(u"TKW03.wav"_s), "new sound"_ba);
    bench.Renew(u"Help.hlp"_s, "newer help still"_ba);
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(bench.Here(u"Help.hlp"_s), "newer help still"_ba);
}

void TstFolderSetup::WhatTheUserChangedStays() {
    const Bench bench;
    PrepareFolder(bench.folder, bench.masters);
    WriteAll(bench.folder + u"/TKW01.wav"_s, "my own cuckoo"_ba);
    bench.Renew(u"TKW01.wav"_s, "new cuckoo"_ba);
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(bench.Here(u"TKW01.wav"_s), "my own cuckoo"_ba);
}

void TstFolderSetup::TheDayDatabaseIsNeverRefreshed() {
    const Bench bench;
    PrepareFolder(bench.folder, bench.masters);
    const QByteArray before = bench.Here(u"DayDate.mdb"_s);
    bench.Renew(u"DayDate.mdb"_s, "another"_ba);
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(bench.Here(u"DayDate.mdb"_s), before);
}

void TstFolderSetup::AFileTheUserRemovedIsNotBroughtBack() {
    const Bench bench;
    PrepareFolder(bench.folder, bench.masters);
    QVERIFY(QFile::remove(bench.folder + u"/TKW05.wav"_s));
    bench.Renew(u"TKW05.wav"_s, "new"_ba);
    PrepareFolder(bench.folder, bench.masters);
    QVERIFY(!QFile::exists(bench.folder + u"/TKW05.wav"_s));
}

void TstFolderSetup::TheMastersOwnFolderIsLeftAlone() {
    const Bench bench;
    PrepareFolder(bench.masters, bench.masters);
    QCOMPARE(QDir(bench.masters).entryList(QDir::Files | QDir::Hidden), RequiredFiles());
}

void TstFolderSetup::AFullDiskLeavesNoHalfFilledFolder() {
    const Bench bench;
    QCOMPARE(InChild([&] {
                 std::signal(SIGXFSZ, SIG_IGN);
                 const rlimit limit{50'000, 50'000};  // the database fits, the sounds do not
                 return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? Refused(bench.folder, bench.masters) : 2;
             }),
             0);
    QVERIFY(!QFile::exists(bench.folder));
    QVERIFY(QDir(bench.dir.filePath(u"data"_s)).isEmpty());
}

void TstFolderSetup::FilesLeftByKilledStartsAreRemoved() {
    const Bench bench;
    const QString left = bench.dir.filePath(u"data/.tickwell.unfinished-abcdef"_s);
    // A name that a user may give to a copy.
    const QString backup = bench.dir.filePath(u"data/tickwell-backup"_s);
    QVERIFY(QDir().mkpath(left) && QDir().mkpath(backup));
    CopyFiles(bench.masters, left, RequiredFiles().first(3));
    CopyFiles(bench.masters, backup, RequiredFiles());
    WriteAll(left + u"/.masters", "a");
    PrepareFolder(bench.folder, bench.masters);
    QVERIFY(!QFile::exists(left));
    QCOMPARE(QDir(backup).entryList(QDir::Files), RequiredFiles());
    WriteAll(bench.folder + u"/.Help.hlp.unfinished-abcdef", "half a help");
    WriteAll(bench.folder + u"/..masters.unfinished-abcdef", "half");
    PrepareFolder(bench.folder, bench.masters);
    QCOMPARE(QDir(bench.folder).entryList(QDir::Files | QDir::Hidden),
             QStringList{u".masters"_s} + RequiredFiles());
}

void TstFolderSetup::AFolderThatIsBeingFilledIsLeftAlone() {
    const Bench bench;
    const QString unfinished = bench.dir.filePath(u"data/.tickwell.unfinished-abcdef"_s);
    QVERIFY(QDir().mkpath(unfinished));
    const platform::UnfinishedFilesInUse inUse(bench.dir.filePath(u"data"_s));
    PrepareFolder(bench.folder, bench.masters);
    QVERIFY(QFile::exists(unfinished));
}

void TstFolderSetup::OnlyTheUserHasAccess() {
    const Bench bench;
    const mode_t before = umask(0);
    PrepareFolder(bench.folder, bench.masters);
    umask(before);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    for (const QString& name : QStringList{u"."_s, u".masters"_s} + RequiredFiles()) {
        QCOMPARE(QFile::permissions(bench.folder + u'/' + name) & others, QFile::Permissions());
    }
}

void TstFolderSetup::AReplacedCopyIsNeitherReadNorOverwritten_data() {
    QTest::addColumn<QString>("target");  // of a link; empty for a pipe
    QTest::newRow("a pipe") << QString();
    QTest::newRow("a link to a device that never ends") << u"/dev/zero"_s;
}

void TstFolderSetup::AReplacedCopyIsNeitherReadNorOverwritten() {
    QFETCH(QString, target);
    for (const QString& name : {u"TKW01.wav"_s, u".masters"_s}) {
        const Bench bench;
        PrepareFolder(bench.folder, bench.masters);
        const QString path = bench.folder + u'/' + name;
        QVERIFY(QFile::remove(path));
        QVERIFY(target.isEmpty() ? mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                                 : QFile::link(target, path));
        bench.Renew(u"TKW01.wav"_s, "new"_ba);
        if (name == u".masters") {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^cannot read "_s + path));
        }
        PrepareFolder(bench.folder, bench.masters);
        QVERIFY(!QFileInfo(path).isFile());
    }
}

void TstFolderSetup::AFolderThatCannotBeCreatedIsAnError() {
    const Bench bench;
    WriteAll(bench.dir.filePath(u"data"_s), "a file where a folder should be"_ba);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, PrepareFolder(bench.folder, bench.masters));
}

void TstFolderSetup::AMissingMasterIsNamedAndNothingIsMade() {
    const Bench bench;
    QVERIFY(QFile::remove(bench.masters + u"/TKW05.wav"_s));
    try {
        PrepareFolder(bench.folder, bench.masters);
        QFAIL("made a folder without all its files");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"TKW05.wav"_s);
    }
    QVERIFY(!QFile::exists(bench.folder));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, PrepareFolder(bench.folder, QString()));
    QVERIFY(!QFile::exists(bench.folder));
}

QTEST_GUILESS_MAIN(TstFolderSetup)
#include "tst_folder_setup.moc"
