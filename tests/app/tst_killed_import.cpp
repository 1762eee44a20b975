// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <optional>

#include "app/import_steps.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

namespace {

store::WatchedDisk::Watch DieAt(int step, bool isDone) {
    return [step, isDone](int now, bool isNowDone) {
        if (now == step && isNowDone == isDone) {
            kill(getpid(), SIGKILL);
        }
    };
}

bool IsKilledIn(const std::function<void()>& life) {
    const pid_t child = fork();
    if (child == 0) {
        life();
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

}  // namespace

/// Imports that are killed, or whose disk fails: nothing is lost, and nothing stays half done.
class TstKilledImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnImportKilledAtEachStep_data();
    void AnImportKilledAtEachStep();
    void AStartKilledAtEachStep_data();
    void AStartKilledAtEachStep();
    void AnImportThatFailsAtEachStep_data();
    void AnImportThatFailsAtEachStep();
};

void TstKilledImport::AnImportKilledAtEachStep_data() {
    AddSteps(ImportSteps(), false);
}

// Either all is as before, or the next start makes all of it new; what was there is kept.
void TstKilledImport::AnImportKilledAtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk real;
    const QString source = Export(from, real);
    const State before = to.Now();
    QVERIFY(IsKilledIn([&] {
        store::EveryStepDisk disk(DieAt(step, isDone));
        Import(to, source, disk);
    }));
    StartAgain(to);
    const State after = to.Now();
    if (after == before) {
        QVERIFY(!QFile::exists(to.PathOf(u"DayDate.before-restore.mdb"_s)));
    } else {
        QCOMPARE(after, from.Now());
        QCOMPARE(store::RawConnection(to.PathOf(u"DayDate.before-restore.mdb"_s))
                     .Run("SELECT * FROM Kinenbi ORDER BY id"),
                 before.days);
        QCOMPARE(store::RawConnection(to.PathOf(u"Tools.before-restore.db"_s))
                     .Run("SELECT name FROM presets ORDER BY id"),
                 before.timers);
        QCOMPARE(BytesOf(to.config + u"/TKW2.before-restore.ini"), before.settings);
    }
    QVERIFY(!QFile::exists(StagedImport(to.Program())));
    // Another import works, whatever was left.
    Import(to, source, real);
    StartAgain(to);
    QCOMPARE(to.Now(), from.Now());
    QVERIFY(!QFile::exists(to.PathOf(u".Import.unfinished"_s)));
}

void TstKilledImport::AStartKilledAtEachStep_data() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk real;
    StageImport(to.Program(), Export(from, real), real);
    store::EveryStepDisk disk([](int, bool) {});
    FinishImport(to.Program(), to.settings, disk);
    AddSteps(disk.Steps(), false);
}

void TstKilledImport::AStartKilledAtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk real;
    StageImport(to.Program(), Export(from, real), real);
    const State before = to.Now();
    QVERIFY(IsKilledIn([&] {
        store::EveryStepDisk disk(DieAt(step, isDone));
        FinishImport(to.Program(), to.settings, disk);
    }));
    StartAgain(to);
    QCOMPARE(to.Now(), from.Now());
    QCOMPARE(BytesOf(to.config + u"/TKW2.before-restore.ini"), before.settings);
    QVERIFY(!QFile::exists(StagedImport(to.Program())));
}

void TstKilledImport::AnImportThatFailsAtEachStep_data() {
    AddSteps(ImportSteps(), true);
}

void TstKilledImport::AnImportThatFailsAtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::PosixStoreDisk real;
    const QString source = Export(from, real);
    const State before = to.Now();
    store::EveryStepDisk disk([&](int now, bool isNowDone) {
        if (now == step && isNowDone == isDone) {
            throw store::DiskError(u"here"_s, EIO);
        }
    });
    std::optional<store::CompactionEnd> end;
    const QString fault = FaultOf([&] {
        StageImport(to.Program(), source, disk);
        end.emplace(ApplyImport(to.Program(), disk));
    });
    end.reset();
    const State after = to.Now();
    if (after.days == before.days) {
        QCOMPARE(after, before);
    }
    StartAgain(to);
    QVERIFY(to.Now() == before || to.Now() == from.Now());
    QVERIFY(!QFile::exists(StagedImport(to.Program())));
    if (after.days != before.days) {
        QCOMPARE(to.Now(), from.Now());
    }
}

QTEST_GUILESS_MAIN(TstKilledImport)
#include "tst_killed_import.moc"
