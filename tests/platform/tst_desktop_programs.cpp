// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cerrno>
#include <csignal>

#include "platform/processes/desktop_programs.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kRunnable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

const QByteArrayList kEnvironment{"PATH=/usr/bin:/bin", "LANG=C.UTF-8", "A=b=c"};

DesktopPrograms Programs() {
    return DesktopPrograms({022, kEnvironment});
}

/// Writes to a file what the script inherited; the rename signals that the file is complete.
const QByteArray kLegacy =
    "#!/bin/sh\n"
    "{ grep -E '^(SigBlk|SigIgn|PPid|NSsid):' /proc/self/status; umask; "
    "ls /proc/self/fd | grep -vx '[012]' | wc -l; tr '\\0' '\\n' < /proc/$$/environ; } > "
    "\"$0.unfinished\"\n"
    "mv \"$0.unfinished\" \"$0.seen\"\n";

/// Writes to a file the script's folder and arguments; the rename signals that the file is complete.
const QByteArray kScript =
    "#!/bin/sh\n"
    "{ pwd; for each in \"$@\"; do printf '%s\\n' \"<$each>\"; done; } > \"$0.unfinished\"\n"
    "mv \"$0.unfinished\" \"$0.seen\"\n";

void WriteScript(const QString& path, QFile::Permissions permissions = kRunnable,
                 const QByteArray& script = kScript) {
    WriteAll(path, script);
    if (!QFile::setPermissions(path, permissions)) {
        qFatal("cannot set the rights of %s", qPrintable(path));
    }
}

}  // namespace

/// Programs started as separate processes.
class TstDesktopPrograms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AProgramSeesItsArgumentsAndItsFolder_data();
    void AProgramSeesItsArgumentsAndItsFolder();
    void AProgramInheritsOnlyWhatItShould();
    void MaskAndEnvironmentAreTakenWhenRecorded();
    void AProgramIsNotAChildProcess();
    void FilesThatCannotRunDoNotStart_data();
    void FilesThatCannotRunDoNotStart();
    void ABareNameIsNotStarted();
    void ProgramsAreFoundOnThePath();
    void OnlyBareNamesAreFound_data();
    void OnlyBareNamesAreFound();
};

void TstDesktopPrograms::AProgramSeesItsArgumentsAndItsFolder_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("the argument for tools") << QStringList{u"VeskOnly"_s};
    QTest::newRow("none") << QStringList();
    QTest::newRow("blanks and quotes stay where they are") << QStringList{u"a  b"_s, u"\"c\" 'd'"_s};
    QTest::newRow("no shell reads them") << QStringList{u"$HOME"_s, u"`id`"_s, u"; touch x"_s, u"*"_s};
    QTest::newRow("Japanese, and an empty one") << QStringList{u"ｼｽﾃﾑ情報"_s, u""_s};
}

void TstDesktopPrograms::AProgramSeesItsArgumentsAndItsFolder() {
    QFETCH(QStringList, arguments);
    const QTemporaryDir dir;
    const QString folder = dir.filePath(u"プログラムの フォルダー"_s);
    QVERIFY(QDir().mkpath(folder));
    const QString tool = dir.filePath(u"KT01.exe"_s);
    WriteScript(tool);
    QVERIFY(Programs().Start(tool, arguments, folder));
    QTRY_VERIFY(QFileInfo::exists(tool + u".seen"));
    QString expected = folder + u'\n';
    for (const QString& argument : arguments) {
        expected += u'<' + argument + u">\n";
    }
    QCOMPARE(QString::fromUtf8(ReadAll(tool + u".seen")), expected);
}

/// Every attribute that a process can inherit is set to an unusual value.
void TstDesktopPrograms::AProgramInheritsOnlyWhatItShould() {
    const QTemporaryDir dir;
    const QString tool = dir.filePath(u"KT01.exe"_s);
    WriteScript(tool, kRunnable, kLegacy);
    const mode_t maskBefore = umask(077);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    QCOMPARE(sigprocmask(SIG_BLOCK, &blocked, nullptr), 0);
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGXFSZ}) {
        QVERIFY(std::signal(number, SIG_IGN) != SIG_ERR);
    }
    const int inherited = dup(STDERR_FILENO);
    const auto restored = qScopeGuard([&] {
        umask(maskBefore);
        sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
        for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGXFSZ}) {
            std::signal(number, SIG_DFL);
        }
        close(inherited);
    });
    QVERIFY(Programs().Start(tool, {}, dir.path()));
    QTRY_VERIFY(QFileInfo::exists(tool + u".seen"));
    const QByteArray seen = ReadAll(tool + u".seen");
    for (const QByteArray& line : {"SigBlk:\t0000000000000000\n"_ba, "SigIgn:\t0000000000000000\n"_ba,
                                   "\n0022\n1\n"_ba /* ls looks at its folder through one */}) {
        QVERIFY2(seen.contains(line), seen.constData());
    }
    QByteArrayList environment = seen.mid(seen.indexOf("\n1\n") + 3).trimmed().split('\n');
    QByteArrayList expected = kEnvironment;
    std::sort(expected.begin(), expected.end());
    std::sort(environment.begin(), environment.end());
    QCOMPARE(environment, expected);
}

void TstDesktopPrograms::MaskAndEnvironmentAreTakenWhenRecorded() {
    qputenv("TICKWELL_TEST", "before");
    const mode_t before = umask(027);
    const Inheritance inheritance = Inheritance::OfThisProcess();
    QCOMPARE(umask(before), mode_t{027});
    qputenv("TICKWELL_TEST", "after");
    QCOMPARE(inheritance.mask, mode_t{027});
    QVERIFY(inheritance.environment.contains("TICKWELL_TEST=before"));
    QVERIFY(inheritance.environment.contains("TZ=Asia/Tokyo"));
    qunsetenv("TICKWELL_TEST");
}

void TstDesktopPrograms::AProgramIsNotAChildProcess() {
    const QTemporaryDir dir;
    const QString tool = dir.filePath(u"KT01.exe"_s);
    WriteScript(tool, kRunnable, "#!/bin/sh\necho $PPID > \"$0.part\"\nmv \"$0.part\" \"$0.seen\"\n");
    QVERIFY(Programs().Start(tool, {}, dir.path()));
    QTRY_VERIFY(QFileInfo::exists(tool + u".seen"));
    QVERIFY(ReadAll(tool + u".seen").trimmed() != QByteArray::number(getpid()));
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);  // no child is left, running or zombie
    QCOMPARE(errno, ECHILD);
}

void TstDesktopPrograms::FilesThatCannotRunDoNotStart_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("folder");
    QTest::newRow("missing") << u"missing"_s << u"."_s;
    QTest::newRow("without the right to run") << u"plain"_s << u"."_s;
    QTest::newRow("a folder") << u"folder"_s << u"."_s;
    QTest::newRow("nowhere to run") << u"good"_s << u"nowhere"_s;
}

void TstDesktopPrograms::FilesThatCannotRunDoNotStart() {
    QFETCH(QString, file);
    QFETCH(QString, folder);
    const QTemporaryDir dir;
    WriteScript(dir.filePath(u"plain"_s), QFile::ReadOwner | QFile::WriteOwner);
    WriteScript(dir.filePath(u"good"_s));
    QVERIFY(QDir().mkpath(dir.filePath(u"folder"_s)));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^cannot start "_s + dir.filePath(file)));
    QVERIFY(!Programs().Start(dir.filePath(file), {}, dir.filePath(folder)));
}

void TstDesktopPrograms::ABareNameIsNotStarted() {
    const QTemporaryDir dir;
    QVERIFY(!Programs().Start(u"true"_s, {}, dir.path()));
    QVERIFY(!Programs().Start(QString(), {}, dir.path()));
}

void TstDesktopPrograms::ProgramsAreFoundOnThePath() {
    const QTemporaryDir first;
    const QTemporaryDir second;
    WriteScript(first.filePath(u"only-first"_s));
    WriteScript(first.filePath(u"both"_s));
    WriteScript(second.filePath(u"both"_s));
    WriteScript(second.filePath(u"only-second"_s));
    WriteScript(first.filePath(u"not-runnable"_s), QFile::ReadOwner);
    const QByteArray path = qgetenv("PATH");
    const auto restore = qScopeGuard([&] { qputenv("PATH", path); });
    QVERIFY(qputenv("PATH", QString(first.path() + u':' + second.path()).toUtf8()));
    const DesktopPrograms programs = Programs();
    QCOMPARE(programs.Find(u"only-first"_s), first.filePath(u"only-first"_s));
    QCOMPARE(programs.Find(u"only-second"_s), second.filePath(u"only-second"_s));
    QCOMPARE(programs.Find(u"both"_s), first.filePath(u"both"_s));
    QCOMPARE(programs.Find(u"not-runnable"_s), QString());
    QCOMPARE(programs.Find(u"none"_s), QString());
}

void TstDesktopPrograms::OnlyBareNamesAreFound_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("absolute") << u"/bin/sh"_s;
    QTest::newRow("relative") << u"../bin/sh"_s;
}

void TstDesktopPrograms::OnlyBareNamesAreFound() {
    QFETCH(QString, name);
    QCOMPARE(Programs().Find(name), QString());
    QVERIFY(!Programs().Find(u"sh"_s).isEmpty());
}

QTEST_GUILESS_MAIN(TstDesktopPrograms)
#include "tst_desktop_programs.moc"
