// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <csignal>

#include "platform/processes/child_process.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

struct Ended {
    QByteArray output;
    int code = -2;  ///< as returned by ChildProcess::ExitCode; -2 if it did not exit
};

QStringList Script(const QString& text) {
    return {u"-c"_s, text};
}

/// Reads a child's output and exit code.
Ended WaitFor(ChildProcess& child) {
    Ended ended;
    const bool hasEnded = QTest::qWaitFor(
        [&] {
            ended.output += child.Read(1'000'000);
            const std::optional<int> code = child.ExitCode();
            ended.code = code.value_or(ended.code);
            return code.has_value();
        },
        30'000);
    return hasEnded ? ended : Ended();
}

bool HasChildren() {
    return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

}  // namespace

/// Programs that are started and read without blocking.
class TstChildProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void ProgramsEnd_data();
    void ProgramsEnd();
    void AProgramThatIsNotThereDoesNotStart();
    void ReadingNeverWaits();
    void NoMoreIsReadThanRequested();
    void TheChildReadsItsInput_data();
    void TheChildReadsItsInput();
    void AChildThatReadsNothingDoesNotBlockTheWriter();
    void AReleasedChildContinues();
    void LargeOutputArrivesComplete();
    void DestructionEndsTheChild();
    void AnEndedChildIsReaped();
    void ASecondStartEndsTheFirstChild();
    void ChildrenInheritNoFiles();
    void ChildrenHaveDefaultSignalHandling();
};

void TstChildProcess::cleanup() {
    QVERIFY(!HasChildren());  // no test may leave a zombie
}

void TstChildProcess::ProgramsEnd_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("code");
    QTest::newRow("well") << u"echo hello"_s << QByteArray("hello\n") << 0;
    QTest::newRow("with a code") << u"echo half; exit 3"_s << QByteArray("half\n") << 3;
    QTest::newRow("by a signal") << u"echo half; kill -SEGV $$"_s << QByteArray("half\n") << -1;
    QTest::newRow("without output") << u"exit 0"_s << QByteArray() << 0;
    QTest::newRow("with nothing to read") << u"cat; exit 4"_s << QByteArray() << 4;
    QTest::newRow("after it has closed its output") << u"exec >/dev/null; exit 5"_s << QByteArray() << 5;
}

void TstChildProcess::ProgramsEnd() {
    QFETCH(QString, script);
    QFETCH(QByteArray, output);
    QFETCH(int, code);
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(!child.IsRunning());
    QVERIFY(child.Start(u"/bin/sh"_s, Script(script)));
    QVERIFY(child.IsRunning());
    const Ended ended = WaitFor(child);
    QCOMPARE(ended.output, output);
    QCOMPARE(ended.code, code);
    QVERIFY(!child.IsRunning());
}

void TstChildProcess::AProgramThatIsNotThereDoesNotStart() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(!child.Start(u"/no/such/program"_s, {}));
    QVERIFY(!child.IsRunning());
    QVERIFY(child.Read(10).isEmpty());
    QVERIFY(!child.ExitCode());
}

void TstChildProcess::ReadingNeverWaits() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"exec sleep 1000"_s)));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(child.Read(1000).isEmpty());
    QVERIFY(!child.ExitCode());
    QVERIFY(clock.elapsed() < 10'000);
}

void TstChildProcess::NoMoreIsReadThanRequested() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"printf 123456789"_s)));
    QByteArray first;
    QVERIFY(QTest::qWaitFor([&] {
        first += child.Read(4 - first.size());
        return first.size() == 4;
    }));
    QCOMPARE(first, QByteArray("1234"));
    QVERIFY(!child.ExitCode());  // the end is known only after all output was read
    QCOMPARE(WaitFor(child).output, QByteArray("56789"));
}

void TstChildProcess::TheChildReadsItsInput_data() {
    QTest::addColumn<QByteArray>("input");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("a line") << "一行\n"_ba;
    QTest::newRow("more than a pipe holds") << QByteArray(1'000'000, 'x') + "end";
}

void TstChildProcess::TheChildReadsItsInput() {
    QFETCH(QByteArray, input);
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"exec cat"_s), input));
    const Ended ended = WaitFor(child);
    QCOMPARE(ended.output, input);
    QCOMPARE(ended.code, 0);
}

void TstChildProcess::AChildThatReadsNothingDoesNotBlockTheWriter() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"exec sleep 1000"_s), QByteArray(10'000'000, 'x')));
    QVERIFY(child.IsRunning());
}

void TstChildProcess::AReleasedChildContinues() {
    const QTemporaryDir dir;
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s,
                        Script(u"while [ ! -e '%1/go' ]; do sleep 0.05; done; exit 7"_s.arg(dir.path()))));
    child.LetGo();
    QVERIFY(!child.IsRunning());
    reaper.Reap();
    QVERIFY(reaper.IsIdle());
    WriteAll(dir.filePath(u"go"_s), QByteArray());
    int status = 0;
    QVERIFY(waitpid(-1, &status, 0) > 0);  // it was neither killed nor reaped
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 7);
}

void TstChildProcess::LargeOutputArrivesComplete() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"head -c 5000000 /dev/zero"_s)));
    const Ended ended = WaitFor(child);
    QCOMPARE(ended.output.size(), 5'000'000);
    QCOMPARE(ended.code, 0);
}

void TstChildProcess::DestructionEndsTheChild() {
    ChildReaper reaper;
    {
        ChildProcess child(reaper);
        QVERIFY(child.Start(u"/bin/sh"_s, Script(u"exec sleep 1000"_s)));
    }
    QVERIFY(QTest::qWaitFor([&] {
        reaper.Reap();
        return reaper.IsIdle();
    }));
}

void TstChildProcess::AnEndedChildIsReaped() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"trap '' TERM INT; echo ready; exec sleep 1000"_s)));
    QVERIFY(QTest::qWaitFor([&] { return !child.Read(10).isEmpty(); }));
    child.End();
    QVERIFY(!child.IsRunning());
    QVERIFY(QTest::qWaitFor([&] {
        reaper.Reap();
        return reaper.IsIdle();
    }));
    QVERIFY(!HasChildren());
}

void TstChildProcess::ASecondStartEndsTheFirstChild() {
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"echo first; exec sleep 1000"_s)));
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"echo second"_s)));
    const Ended ended = WaitFor(child);
    QCOMPARE(ended.output, QByteArray("second\n"));
    QCOMPARE(ended.code, 0);
}

void TstChildProcess::ChildrenInheritNoFiles() {
    const int ours = dup(STDERR_FILENO);  // not closed by exec
    QVERIFY(ours > STDERR_FILENO);
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"[ -e /proc/self/fd/%1 ] && echo open; exit 0"_s.arg(ours))));
    QCOMPARE(WaitFor(child).output, QByteArray());
    close(ours);
}

void TstChildProcess::ChildrenHaveDefaultSignalHandling() {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    ChildReaper reaper;
    ChildProcess child(reaper);
    QVERIFY(child.Start(u"/bin/sh"_s, Script(u"kill -PIPE $$; echo survived"_s)));
    const Ended ended = WaitFor(child);
    std::signal(SIGPIPE, before);
    QCOMPARE(ended.output, QByteArray());
    QCOMPARE(ended.code, -1);
}

QTEST_GUILESS_MAIN(TstChildProcess)
#include "tst_child_process.moc"
