// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/stat.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "core/errors.h"
#include "platform/desktop/autostart_file.h"
#include "platform/files/base_directories.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

/// A user folder that does not exist yet, and two system folders.
struct Bench {
    QTemporaryDir dir;
    QString user = dir.filePath(u"home/.config/autostart"_s);
    QString first = dir.filePath(u"etc/first/autostart"_s);
    QString second = dir.filePath(u"etc/second/autostart"_s);
    QString program = dir.filePath(u"tickwell"_s);

    Bench() {
        QDir().mkpath(first);
        QDir().mkpath(second);
        WriteAll(program, "#!/bin/sh\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    }

    AutostartFile File() const { return {{user, first, second}, {program}}; }
    QByteArray Entry() const { return ReadAll(user + u"/tickwell.desktop"); }
    static void Put(const QString& folder, const QByteArray& lines) {
        QDir().mkpath(folder);
        WriteAll(folder + u"/tickwell.desktop", "[Desktop Entry]\nType=Application\nName=Tickwell\n" + lines);
    }
};

/// 0 if Set throws an error that names the file, as expected.
int Refused(const Bench& bench, bool on) {
    try {
        bench.File().Set(on);
        return 1;
    } catch (const RunTimeError& error) {
        return error.Reason().contains(bench.user + u"/tickwell.desktop") ? 0 : 2;
    }
}

}  // namespace

/// The entry that a desktop starts at login.
class TstAutostartFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingStartsAtFirst();
    void OnWritesAnEntryThatStartsTheProgram();
    void OffRemovesTheEntryAndLeavesNothing();
    void OffTwiceIsNoError();
    void TheEntryDecides_data();
    void TheEntryDecides();
    void TheUsersEntryOverridesTheSystems();
    void TheFirstOfTheSystemsCounts();
    void ASystemEntryIsHiddenAndShownAgain();
    void AProgramThatIsGoneDoesNotStart();
    void SwitchingOnAgainRepairsTheEntryOfAMovedProgram();
    void SpecialCharactersAreEscapedTwice();
    void AFolderInPlaceOfTheFileIsRefused();
    void ReadOnlyFoldersAreRefusedAndKept();
    void AFullDiskKeepsTheOldEntry();
    void AnEndlessEntryIsOff_data();
    void AnEndlessEntryIsOff();
    void AnEntryHiddenByADeviceIsReplacedAndNotTheDevice();
    void TheFoldersFollowXdg();
};

void TstAutostartFile::NothingStartsAtFirst() {
    const Bench bench;
    QVERIFY(!bench.File().IsOn());
    QVERIFY(!QFile::exists(bench.user));
}

void TstAutostartFile::OnWritesAnEntryThatStartsTheProgram() {
    const Bench bench;
    bench.File().Set(true);
    QVERIFY(bench.File().IsOn());
    const QList<QByteArray> lines = bench.Entry().split('\n');
    QCOMPARE(lines.constFirst(), "[Desktop Entry]"_ba);
    const QByteArray program = bench.program.toUtf8();
    const QByteArrayList expected{"Type=Application", "Name=Tickwell", "Icon=tickwell", "Exec=" + program,
                                  "TryExec=" + program};
    for (const QByteArray& line : expected) {
        QCOMPARE(lines.count(line), 1);
    }
    QCOMPARE(QDir(bench.user).entryList(QDir::Files | QDir::Hidden), QStringList{u"tickwell.desktop"_s});
}

void TstAutostartFile::OffRemovesTheEntryAndLeavesNothing() {
    const Bench bench;
    bench.File().Set(true);
    bench.File().Set(false);
    QVERIFY(!bench.File().IsOn());
    QVERIFY(QDir(bench.user).isEmpty());
}

void TstAutostartFile::OffTwiceIsNoError() {
    const Bench bench;
    bench.File().Set(false);
    bench.File().Set(false);
    QVERIFY(!QFile::exists(bench.user));
}

void TstAutostartFile::TheEntryDecides_data() {
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("a command") << "Exec=tickwell\n"_ba << true;
    QTest::newRow("none") << ""_ba << false;
    QTest::newRow("hidden") << "Exec=tickwell\nHidden=true\n"_ba << false;
    QTest::newRow("not hidden") << "Exec=tickwell\nHidden=false\n"_ba << true;
    QTest::newRow("switched off by a desktop")
        << "Exec=tickwell\nX-GNOME-Autostart-enabled=false\n"_ba << false;
    QTest::newRow("switched on by a desktop") << "Exec=tickwell\nX-GNOME-Autostart-enabled=true\n"_ba << true;
    QTest::newRow("a program that is there, by name") << "Exec=sh\nTryExec=sh\n"_ba << true;
    QTest::newRow("one that is not") << "Exec=sh\nTryExec=no-such-program\n"_ba << false;
    QTest::newRow("hidden in another group") << "Exec=tickwell\n[Other]\nHidden=true\n"_ba << true;
}

void TstAutostartFile::TheEntryDecides() {
    QFETCH(QByteArray, lines);
    QFETCH(bool, isOn);
    const Bench bench;
    Bench::Put(bench.user, lines);
    QCOMPARE(bench.File().IsOn(), isOn);
}

void TstAutostartFile::TheUsersEntryOverridesTheSystems() {
    const Bench bench;
    Bench::Put(bench.first, "Exec=tickwell\n");
    QVERIFY(bench.File().IsOn());
    Bench::Put(bench.user, "Hidden=true\n");
    QVERIFY(!bench.File().IsOn());
}

void TstAutostartFile::TheFirstOfTheSystemsCounts() {
    const Bench bench;
    Bench::Put(bench.first, "Exec=tickwell\nHidden=true\n");
    Bench::Put(bench.second, "Exec=tickwell\n");
    QVERIFY(!bench.File().IsOn());
}

void TstAutostartFile::ASystemEntryIsHiddenAndShownAgain() {
    const Bench bench;
    Bench::Put(bench.second, "Exec=tickwell\n");
    const QByteArray everybodys = ReadAll(bench.second + u"/tickwell.desktop");
    bench.File().Set(false);
    QVERIFY(!bench.File().IsOn());
    QVERIFY(bench.Entry().split('\n').contains("Hidden=true"));
    bench.File().Set(true);
    QVERIFY(bench.File().IsOn());
    QVERIFY(!bench.Entry().contains("Hidden"));
    QCOMPARE(ReadAll(bench.second + u"/tickwell.desktop"), everybodys);
}

void TstAutostartFile::AProgramThatIsGoneDoesNotStart() {
    const Bench bench;
    bench.File().Set(true);
    QVERIFY(QFile::remove(bench.program));
    QVERIFY(!bench.File().IsOn());
}

void TstAutostartFile::SwitchingOnAgainRepairsTheEntryOfAMovedProgram() {
    const Bench bench;
    Bench::Put(bench.user, "Exec=/gone/tickwell\nTryExec=/gone/tickwell\n");
    bench.File().Set(true);
    QVERIFY(bench.File().IsOn());
    QVERIFY(!bench.Entry().contains("/gone"));
}

void TstAutostartFile::SpecialCharactersAreEscapedTwice() {
    const Bench bench;
    const QString hard = bench.dir.filePath(uR"(a\b $c)"_s);
    QVERIFY(QFile::copy(bench.program, hard));
    AutostartFile file({bench.user}, {hard, u"--folder"_s, u"/x\ny"_s});
    file.Set(true);
    const QByteArray here = bench.dir.path().toUtf8();
    const QList<QByteArray> lines = bench.Entry().split('\n');
    const QByteArray exec = "Exec=\"" + here + R"(/a\\\\b \\$c" --folder "/x\ny")";
    const QByteArray tryExec = "TryExec=" + here + R"(/a\\b $c)";
    QVERIFY2(lines.contains(exec) && lines.contains(tryExec), bench.Entry());
    QVERIFY(file.IsOn());
}

void TstAutostartFile::AFolderInPlaceOfTheFileIsRefused() {
    const Bench bench;
    QVERIFY(QDir().mkpath(bench.user + u"/tickwell.desktop/x"_s));
    QCOMPARE(Refused(bench, true), 0);
    QCOMPARE(Refused(bench, false), 0);
}

void TstAutostartFile::ReadOnlyFoldersAreRefusedAndKept() {
    const Bench bench;
    QVERIFY(QFile::setPermissions(bench.dir.path(), QFile::Permissions(0x7055)));
    QCOMPARE(InChild([&] { return BecomeNobody() ? Refused(bench, true) : 3; }), 0);
    QVERIFY(!QFile::exists(bench.user));
    bench.File().Set(true);
    const QByteArray before = bench.Entry();
    QVERIFY(QFile::setPermissions(bench.user, QFile::Permissions(0x5055)));
    QCOMPARE(InChild([&] { return BecomeNobody() ? Refused(bench, false) : 3; }), 0);
    QCOMPARE(bench.Entry(), before);
}

void TstAutostartFile::AFullDiskKeepsTheOldEntry() {
    const Bench bench;
    Bench::Put(bench.user, "Hidden=true\n");
    const QByteArray before = bench.Entry();
    QCOMPARE(InChild([&] {
                 std::signal(SIGXFSZ, SIG_IGN);
                 const rlimit limit{20, 20};
                 return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? Refused(bench, true) : 3;
             }),
             0);
    QCOMPARE(bench.Entry(), before);
    QCOMPARE(QDir(bench.user).entryList(QDir::Files | QDir::Hidden), QStringList{u"tickwell.desktop"_s});
}

void TstAutostartFile::AnEndlessEntryIsOff_data() {
    QTest::addColumn<QString>("target");  // of a link; empty for a pipe
    QTest::newRow("a pipe") << QString();
    QTest::newRow("a link to a device") << u"/dev/zero"_s;
    QTest::newRow("a large file") << u"large"_s;
}

void TstAutostartFile::AnEndlessEntryIsOff() {
    QFETCH(QString, target);
    const Bench bench;
    QVERIFY(QDir().mkpath(bench.user));
    QFile large(bench.user + u"/large");
    QVERIFY(large.open(QIODevice::WriteOnly));
    large.write("[Desktop Entry]\nExec=x\n");
    QVERIFY(large.resize(qint64{1} << 30));
    const QString path = bench.user + u"/tickwell.desktop";
    QVERIFY(target.isEmpty() ? mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                             : QFile::link(target, path));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^cannot read "_s + path));
    QVERIFY(!bench.File().IsOn());
}

void TstAutostartFile::AnEntryHiddenByADeviceIsReplacedAndNotTheDevice() {
    const Bench bench;
    QVERIFY(QDir().mkpath(bench.user));
    const QByteArray device = QFile::encodeName(bench.dir.filePath(u"device"_s));
    QCOMPARE(mkfifo(device.constData(), 0600), 0);  // in place of /dev/null, which root could replace
    QVERIFY(QFile::link(bench.dir.filePath(u"device"_s), bench.user + u"/tickwell.desktop"));
    WriteAll(bench.user + u"/.tickwell.desktop.unfinished-abcdef", "[Desk");
    bench.File().Set(true);
    QVERIFY(bench.File().IsOn());
    QVERIFY(!QFileInfo(bench.user + u"/tickwell.desktop").isSymLink());
    QCOMPARE(QDir(bench.user).entryList(QDir::Files | QDir::Hidden), QStringList{u"tickwell.desktop"_s});
    struct stat state {};
    QVERIFY(stat(device.constData(), &state) == 0 && S_ISFIFO(state.st_mode));
}

void TstAutostartFile::TheFoldersFollowXdg() {
    qputenv("XDG_CONFIG_HOME", "/home/someone/conf");
    qputenv("XDG_CONFIG_DIRS", "/etc/one:/etc/two");
    QCOMPARE(AutostartFile::Folders(), (QStringList{u"/home/someone/conf/autostart"_s,
                                                    u"/etc/one/autostart"_s, u"/etc/two/autostart"_s}));
    qputenv("XDG_CONFIG_HOME", "relative");
    qputenv("XDG_CONFIG_DIRS", "relative:/etc/two::/etc/two/:../up");
    const QStringList expected{QDir::homePath() + u"/.config/autostart", u"/etc/two/autostart"_s};
    QCOMPARE(AutostartFile::Folders(), expected);
    QTest::ignoreMessage(QtWarningMsg, "XDG_CONFIG_HOME is ignored: \"relative\" is no absolute path");
    DropRelativeFolders();
    QVERIFY(!qEnvironmentVariableIsSet("XDG_CONFIG_HOME"));
    QCOMPARE(AutostartFile::Folders(), expected);
    qputenv("XDG_CONFIG_HOME", "/absolute");
    DropRelativeFolders();
    QCOMPARE(qgetenv("XDG_CONFIG_HOME"), "/absolute"_ba);
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("XDG_CONFIG_DIRS");
    QCOMPARE(AutostartFile::Folders(),
             (QStringList{QDir::homePath() + u"/.config/autostart", u"/etc/xdg/autostart"_s}));
}

QTEST_GUILESS_MAIN(TstAutostartFile)
#include "tst_autostart_file.moc"
