// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>
#include <array>
#include <csignal>
#include <ctime>

#include "store/compaction_case.h"
#include "store/day_recovery.h"
#include "store/store_faults.h"
#include "store/watched_disk.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr quint32 kSeed = 0xC0FF;
constexpr int kSteps = 14;
constexpr int kKillsWhileWriting = 30;  // of the copy; the same number while the target is written
constexpr int kKillsAtAnyMoment = 60;
constexpr int kLongestLife = 120'000;  // microseconds

void Die() {
    kill(getpid(), SIGKILL);
}

/// Runs `life` in a separate process; true if that was killed with SIGKILL.
bool IsKilledIn(const std::function<void()>& life) {
    const pid_t child = fork();
    if (child == 0) {
        life();
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

/// From now on the kernel kills this process when one of its files would grow beyond `size`.
void DieWhereAFileGrowsBeyond(rlim_t size) {
    const rlimit limit{size, size};
    if (std::signal(SIGXFSZ, [](int) { Die(); }) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        _exit(2);
    }
}

/// Lets the kernel kill this process after that many microseconds.
void DieIn(int microseconds) {
    constexpr int kNanoseconds = 1000;
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec time{{0, 0}, {0, microseconds * kNanoseconds + 1}};
    if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 || timer_settime(timer, 0, &time, nullptr) != 0) {
        _exit(2);
    }
}

/// Kills the process while it is writing the copy or the target database.
class DeadlyDisk : public PosixStoreDisk {
public:
    enum class While { Copying, Compacting };

    DeadlyDisk(While when, rlim_t size) : m_when(when), m_size(size) {}

    void Copy(const SqliteConnection& from, const QString& to) override {
        if (m_when == While::Copying) {
            DieWhereAFileGrowsBeyond(m_size);
        }
        PosixStoreDisk::Copy(from, to);
    }
    void Compact(SqliteConnection& from, const QString& to) override {
        if (m_when == While::Compacting) {
            DieWhereAFileGrowsBeyond(m_size);
        }
        PosixStoreDisk::Compact(from, to);
    }

private:
    While m_when;
    rlim_t m_size;
};

/// Opens and compacts the database as the program does; runs in a child process.
void OpenAndCompact(const LooseStore& store, StoreDisk& disk) {
    DayDatabase handle(u"DayDate.mdb"_s);
    FakeMessageBoxes boxes;
    CompactDayDatabase(handle, ProgramFolder(store.Folder()), boxes, disk);
}

/// Stores anniversaries number `first`, `first` + 1, … with a compaction after each, until it is killed.
/// Reports each number after its row is stored.
void WriteAndCompact(const LooseStore& store, int first, int output) {
    DayDatabase handle(u"DayDate.mdb"_s);
    FakeMessageBoxes boxes;
    PosixStoreDisk disk;
    for (int number = first;; ++number) {
        handle.Execute(u"INSERT INTO Kinenbi VALUES (\"新しい記念日\",%1,1,2,0)"_s.arg(number));
        if (write(output, &number, sizeof number) != sizeof number) {
            _exit(1);
        }
        CompactDayDatabase(handle, ProgramFolder(store.Folder()), boxes, disk);
    }
}

/// The rows of a store, extended by the anniversaries number 1 to `last`.
QStringList With(QStringList rows, int last) {
    const auto isAnniversary = [](const QString& row) { return row.startsWith(u"Kinenbi|"); };
    auto end = std::find_if_not(rows.begin(), rows.end(), isAnniversary);
    const int id = (end - 1)->section(u'|', 1, 1).toInt();
    for (int number = 1; number <= last; ++number) {
        end = rows.insert(end, u"Kinenbi|%1|新しい記念日|%2|1|2|0"_s.arg(id + number).arg(number)) + 1;
    }
    return rows;
}

/// The last number that was reported; `before` if there is none.
int LastSaid(int input, int before) {
    int number = before;
    int said = 0;
    while (read(input, &said, sizeof said) == sizeof said) {
        number = said;
    }
    return number;
}

}  // namespace

/// Compactions that are killed. After the next start every row must exist.
class TstKilledCompaction : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AtEachStep_data();
    void AtEachStep();
    void WhileAFileIsWritten_data();
    void WhileAFileIsWritten();
    void AtAnyMoment();

private:
    /// Starts as the program does, and checks the rows and the files.
    static void StartAgain(const LooseStore& store, const QStringList& rows);
};

void TstKilledCompaction::StartAgain(const LooseStore& store, const QStringList& rows) {
    QVERIFY(QFile::exists(u"DayDate.mdb"_s));  // the file exists at every moment
    RecoverDayDatabase(Here());
    QCOMPARE(OpeningFault(u"DayDate.mdb"_s), QString());
    QStringList names = store.Names();
    names.removeOne(u"DayDate.mdb-journal"_s);  // left by an insert that had not written to the file yet
    QCOMPARE(names, NamesAtRest());
    QCOMPARE(store.Raw("PRAGMA integrity_check"), QStringList(u"ok"_s));
    QCOMPARE(store.Rows(), rows);
}

void TstKilledCompaction::AtEachStep_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isDone");
    for (int step = 1; step <= kSteps; ++step) {
        QTest::addRow("before step %d", step) << step << false;
        QTest::addRow("after step %d", step) << step << true;
    }
}

void TstKilledCompaction::AtEachStep() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    const LooseStore store;
    const QStringList rows = store.Rows();
    QVERIFY(IsKilledIn([&] {
        WatchedDisk disk([&](int now, bool isNowDone) {
            if (now == step && isNowDone == isDone) {
                Die();
            }
        });
        OpenAndCompact(store, disk);
    }));
    StartAgain(store, rows);
}

void TstKilledCompaction::WhileAFileIsWritten_data() {
    QTest::addColumn<DeadlyDisk::While>("when");
    QTest::newRow("copy") << DeadlyDisk::While::Copying;
    QTest::newRow("target") << DeadlyDisk::While::Compacting;
}

void TstKilledCompaction::WhileAFileIsWritten() {
    QFETCH(DeadlyDisk::While, when);
    qInfo("seed %u", kSeed);
    const LooseStore store(20'000);
    const QStringList rows = store.Rows();
    qint64 size = QFileInfo(store.Path()).size();
    if (when == DeadlyDisk::While::Compacting) {
        store.Raw("VACUUM INTO '" + store.PathOf(u"measured"_s).toUtf8() + "'");
        size = QFileInfo(u"measured"_s).size();
        QVERIFY(QFile::remove(u"measured"_s));
    }
    QRandomGenerator random(kSeed);
    for (int i = 0; i < kKillsWhileWriting; ++i) {
        const auto end = static_cast<rlim_t>(random.bounded(static_cast<int>(size)));
        QVERIFY(IsKilledIn([&] {
            DeadlyDisk disk(when, end);
            OpenAndCompact(store, disk);
        }));
        QVERIFY(QFileInfo(u"DayDate.mdb"_s).size() > size || when == DeadlyDisk::While::Copying);
        QVERIFY(QFile::exists(u"CopyDate.mdb"_s));
        StartAgain(store, rows);
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"killed after %1 bytes"_s.arg(end)));
        }
    }
}

void TstKilledCompaction::AtAnyMoment() {
    qInfo("seed %u", kSeed);
    const LooseStore store;
    const QStringList rows = store.Rows();
    QRandomGenerator random(kSeed);
    int stored = 0;
    int left = 0;  // how often a kill left files behind
    for (int i = 0; i < kKillsAtAnyMoment; ++i) {
        std::array<int, 2> ends{};
        QCOMPARE(pipe(ends.data()), 0);
        const int life = random.bounded(kLongestLife);
        QVERIFY(IsKilledIn([&] {
            close(ends[0]);
            DieIn(life);
            WriteAndCompact(store, stored + 1, ends[1]);
        }));
        close(ends[1]);
        const int said = LastSaid(ends[0], stored);
        close(ends[0]);
        left += QFile::exists(u"CopyDate.mdb"_s) ? 1 : 0;
        RecoverDayDatabase(Here());
        const QString found = store.Raw("SELECT count(*) FROM Kinenbi WHERE \"Year\" > 0")[0];
        stored = found.toInt();
        QVERIFY2(stored == said || stored == said + 1, qPrintable(found));
        StartAgain(store, With(rows, stored));
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"at kill %1"_s.arg(i)));
        }
    }
    qInfo("%d rows were stored; files were left behind %d times", stored, left);
    QVERIFY(stored > 0);
    QVERIFY(left > 0);
}

QTEST_GUILESS_MAIN(TstKilledCompaction)
#include "tst_killed_compaction.moc"
