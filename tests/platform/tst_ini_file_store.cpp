// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/stat.h>

#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "core/settings_io.h"
#include "platform/files/ini_file_store.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

/// 0 if saving throws RunTimeError, as expected.
int SaveFails(const QString& path) {
    try {
        IniFileStore store(path);
        AppSettings settings;
        LoadSettings(store, settings);
        SaveSettings(store, settings, {}, {2505, 0, 0});
        return 1;
    } catch (const RunTimeError&) {
        return 0;
    }
}

/// A user's settings file with many entries that the program does not know.
QByteArray UsersFile() {
    return "# my file\n[SetUp]\nOp_Speed=30\nA_Font=ＭＳ Ｐゴシック\nFuture=1\n\n[Wape]\nTime=12\n[Notes]\nx=y\nno key\n"_ba;
}

}  // namespace

/// The settings file on a real disk.
class TstIniFileStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAbsentFileIsEmptyAndStaysAbsent();
    void ASaveMakesFolderAndFile();
    void UnknownSectionsKeysAndCommentsSurviveASave();
    void ChangesByAnotherProgramSurvive();
    void AFileCutAtEveryByteLoadsOrIsRefused();
    void AFileOfRandomBytesLoadsOrIsRefused();
    void InvalidUtf8IsNamedAndNotOverwritten();
    void AFullDiskKeepsTheOldFile();
    void AReadOnlyFolderKeepsTheOldFile();
    void AnUnreadableFileIsAnError();
    void AFolderInPlaceOfTheFileIsAnError();
    void ALinkedFileStaysALink();
    void AFileThatIsNoSettingsFileIsNamedAndStays_data();
    void AFileThatIsNoSettingsFileIsNamedAndStays();
    void AFileThatASaveWouldMakeTooLargeStays();
    void AFileOfManyLinesIsReadAndSaved();
    void FilesLeftByAKilledSaveAreRemovedAtTheNextStart();
    void TheUsersPathFollowsXdg_data();
    void TheUsersPathFollowsXdg();
};

void TstIniFileStore::AnAbsentFileIsEmptyAndStaysAbsent() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2/TKW2.ini"_s);
    const IniFileStore store(path);
    QCOMPARE(store.Get(u"SetUp"_s, u"Op_Speed"_s), std::nullopt);
    QVERIFY(!QFile::exists(dir.filePath(u"TKW2"_s)));
}

void TstIniFileStore::ASaveMakesFolderAndFile() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"a/b/TKW2.ini"_s);
    IniFileStore store(path);
    store.Set(u"SetUp"_s, u"A_Font"_s, u"ＭＳ Ｐゴシック"_s);
    QVERIFY(!QFile::exists(path));
    store.Commit();
    QCOMPARE(ReadAll(path), u"[SetUp]\nA_Font=ＭＳ Ｐゴシック\n"_s.toUtf8());
    QCOMPARE(store.Get(u"SetUp"_s, u"A_Font"_s), std::optional(u"ＭＳ Ｐゴシック"_s));
    QCOMPARE(QDir(dir.filePath(u"a/b"_s)).entryList(QDir::Files), QStringList{u"TKW2.ini"_s});
}

void TstIniFileStore::UnknownSectionsKeysAndCommentsSurviveASave() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    IniFileStore store(path);
    AppSettings settings;
    LoadSettings(store, settings);
    settings.wipeSpeed = 31;
    SaveSettings(store, settings, {}, {2505, 0, 0});
    const QByteArray after = ReadAll(path);
    QVERIFY(after.startsWith("# my file\n[SetUp]\nOp_Speed=31\n"));
    for (const QByteArray& line : {"Future=1\n"_ba, "[Wape]\nTime=12\n"_ba, "[Notes]\nx=y\nno key\n"_ba}) {
        QVERIFY2(after.contains(line), after.constData());
    }
}

void TstIniFileStore::ChangesByAnotherProgramSurvive() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    IniFileStore store(path);
    WriteAll(path, UsersFile() + "[Roll]\nUse=True\n");
    store.Set(u"SetUp"_s, u"Op_Speed"_s, u"1"_s);
    store.Commit();
    QVERIFY(ReadAll(path).endsWith("[Roll]\nUse=True\n"));
    QVERIFY(ReadAll(path).contains("Op_Speed=1\n"));
}

void TstIniFileStore::AFileCutAtEveryByteLoadsOrIsRefused() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    IniFileStore whole(path);
    AppSettings settings;
    LoadSettings(whole, settings);
    SaveSettings(whole, settings, {}, {2505, 0, 0});
    const QByteArray bytes = ReadAll(path);
    QVERIFY(bytes.size() > 300);
    int loaded = 0;
    for (qsizetype size = 0; size <= bytes.size(); ++size) {
        WriteAll(path, bytes.first(size));
        try {
            IniFileStore store(path);
            WindowGeometry geometry;
            LoadSettings(store, settings);
            LoadWindowGeometry(store, settings, geometry);
            ++loaded;
        } catch (const SettingsError&) {
            // For instance "Op_Speed=" with its number cut off.
        }
        QCOMPARE(ReadAll(path), bytes.first(size));
    }
    QVERIFY(loaded > bytes.size() / 2);
}

void TstIniFileStore::AFileOfRandomBytesLoadsOrIsRefused() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    QRandomGenerator random(7);
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes = "[SetUp]\nOp_Speed=30\nA_Font=x\nA_Size=10\n";
        for (int i = 0; i < round % 20; ++i) {
            bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
        }
        WriteAll(path, bytes);
        try {
            IniFileStore store(path);
            AppSettings settings;
            LoadSettings(store, settings);
            SaveSettings(store, settings, {}, {2505, 0, 0});
            AppSettings again;
            LoadSettings(IniFileStore(path), again);
            QCOMPARE(again, settings);
        } catch (const SettingsError&) {
            QCOMPARE(ReadAll(path), bytes);
        }
    }
}

void TstIniFileStore::InvalidUtf8IsNamedAndNotOverwritten() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    const QByteArray shiftJis = "[SetUp]\nClock_File=\x94\xb5\x8e\x9e\x8cv\n";
    WriteAll(path, shiftJis);
    const IniFileStore store(path);
    AppSettings settings;
    QVERIFY_THROWS_EXCEPTION(SettingsError, LoadSettings(store, settings));
    QCOMPARE(ReadAll(path), shiftJis);
}

void TstIniFileStore::AFullDiskKeepsTheOldFile() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    QCOMPARE(InChild([&] {
                 std::signal(SIGXFSZ, SIG_IGN);  // makes the write fail as on a full disk
                 const rlimit limit{40, 40};
                 return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? SaveFails(path) : 2;
             }),
             0);
    QCOMPARE(ReadAll(path), UsersFile());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"TKW2.ini"_s});
}

void TstIniFileStore::AReadOnlyFolderKeepsTheOldFile() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    QVERIFY(QFile::setPermissions(dir.path(),
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    const int result = InChild([&] {
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(65534) != 0 ||
                               setuid(65534) != 0)) {  // root may write everything
            return 2;
        }
        return SaveFails(path);
    });
    QVERIFY(QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(result, 0);
    QCOMPARE(ReadAll(path), UsersFile());
}

void TstIniFileStore::AnUnreadableFileIsAnError() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    QVERIFY(QFile::setPermissions(dir.path(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeOther));
    QVERIFY(QFile::setPermissions(path, QFile::WriteOwner));
    QCOMPARE(InChild([&] {
                 if (!BecomeNobody()) {
                     return 2;
                 }
                 try {
                     const IniFileStore store(path);
                     return 1;
                 } catch (const RunTimeError& error) {
                     const QString remedy = u"移動または削除すると、既定の設定で起動できます。"_s;
                     return error.Reason().contains(path) && error.Reason().endsWith(remedy) ? 0 : 3;
                 }
             }),
             0);
}

void TstIniFileStore::AFolderInPlaceOfTheFileIsAnError() {
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(u"TKW2.ini"_s));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, IniFileStore(dir.filePath(u"TKW2.ini"_s)));
}

void TstIniFileStore::ALinkedFileStaysALink() {
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"real.ini"_s), UsersFile());
    QVERIFY(QFile::link(dir.filePath(u"real.ini"_s), dir.filePath(u"TKW2.ini"_s)));
    IniFileStore store(dir.filePath(u"TKW2.ini"_s));
    store.Set(u"SetUp"_s, u"Op_Speed"_s, u"2"_s);
    store.Commit();
    QVERIFY(QFileInfo(dir.filePath(u"TKW2.ini"_s)).isSymLink());
    QVERIFY(ReadAll(dir.filePath(u"real.ini"_s)).contains("Op_Speed=2\n"));
}

void TstIniFileStore::AFileThatIsNoSettingsFileIsNamedAndStays_data() {
    QTest::addColumn<QString>("target");  // of a link; empty for a pipe
    QTest::addColumn<qint64>("size");     // of the target, if it is created
    QTest::addColumn<QString>("reason");
    const QString other = u"通常のファイルではありません。"_s;
    const QString large = u"ファイルが大きすぎます（1024 KiBまで）。"_s;
    QTest::newRow("a pipe") << QString() << qint64{0} << other;
    QTest::newRow("a link to a device that never ends") << u"/dev/zero"_s << qint64{0} << other;
    QTest::newRow("a link to a device that is full") << u"/dev/full"_s << qint64{0} << other;
    QTest::newRow("a byte too much") << u"large"_s << (qint64{1} << 20) + 1 << large;
    QTest::newRow("a gigabyte of nothing") << u"large"_s << (qint64{1} << 30) << large;
}

void TstIniFileStore::AFileThatIsNoSettingsFileIsNamedAndStays() {
    QFETCH(QString, target);
    QFETCH(qint64, size);
    QFETCH(QString, reason);
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    if (size > 0) {
        QFile large(dir.filePath(target));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(size));
    }
    QVERIFY(target.isEmpty() ? mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                             : QFile::link(target, path));
    struct stat before {};
    QCOMPARE(stat(QFile::encodeName(path).constData(), &before), 0);
    try {
        const IniFileStore store(path);
        QFAIL("took it for settings");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"設定ファイルを読み込めません。\r\n"_s + path + u"\r\n" + reason +
                                     u"\r\n移動または削除すると、既定の設定で起動できます。");
    }
    struct stat after {};
    QCOMPARE(stat(QFile::encodeName(path).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_size, before.st_size);
}

void TstIniFileStore::AFileThatASaveWouldMakeTooLargeStays() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    const QByteArray largest = '#' + QByteArray((1 << 20) - 2, 'x') + '\n';
    WriteAll(path, largest);
    IniFileStore store(path);
    store.Set(u"SetUp"_s, u"Op_Speed"_s, u"2"_s);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, store.Commit());
    QCOMPARE(ReadAll(path), largest);
}

void TstIniFileStore::AFileOfManyLinesIsReadAndSaved() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    const QByteArray many = QByteArray("a=1\n").repeated(100'000);
    WriteAll(path, "[Notes]\n" + many + "[SetUp]\nOp_Speed=31\nOp_Speed=32\n");
    IniFileStore store(path);
    AppSettings settings;
    LoadSettings(store, settings);
    QCOMPARE(settings.wipeSpeed, 31);
    settings.wipeSpeed = 33;
    SaveSettings(store, settings, {}, {2505, 0, 0});
    const QByteArray expected = "[Notes]\n" + many + "[SetUp]\nOp_Speed=33\nOp_Speed=32\nOp_Waip=2\n";
    QVERIFY(ReadAll(path).startsWith(expected));
    AppSettings again;
    LoadSettings(IniFileStore(path), again);
    QCOMPARE(again, settings);
}

void TstIniFileStore::FilesLeftByAKilledSaveAreRemovedAtTheNextStart() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"TKW2.ini"_s);
    WriteAll(path, UsersFile());
    WriteAll(dir.filePath(u".TKW2.ini.unfinished-abcDEF"_s), "[Set");
    const IniFileStore reader(path, Leftovers::Keep);
    QCOMPARE(reader.Get(u"SetUp"_s, u"Op_Speed"_s), u"30"_s);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    const IniFileStore store(path);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"TKW2.ini"_s});
    QCOMPARE(ReadAll(path), UsersFile());
}

void TstIniFileStore::TheUsersPathFollowsXdg_data() {
    QTest::addColumn<QByteArray>("home");
    QTest::addColumn<QString>("folder");
    QTest::newRow("set") << "/somewhere/else"_ba << u"/somewhere/else"_s;
    QTest::newRow("not set") << QByteArray() << u"/home/user/.config"_s;
    QTest::newRow("relative, which is ignored") << "somewhere/else"_ba << u"/home/user/.config"_s;
    QTest::newRow("relative to the user's home") << "~/else"_ba << u"/home/user/.config"_s;
}

void TstIniFileStore::TheUsersPathFollowsXdg() {
    QFETCH(QByteArray, home);
    QFETCH(QString, folder);
    const QByteArray before = qgetenv("HOME");
    const auto restored = qScopeGuard([&before] { qputenv("HOME", before); });
    qputenv("HOME", "/home/user");
    qputenv("XDG_CONFIG_HOME", home);
    QCOMPARE(IniFileStore::UserPath(), folder + u"/TKW2/TKW2.ini");
}

QTEST_GUILESS_MAIN(TstIniFileStore)
#include "tst_ini_file_store.moc"
