// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSemaphore>
#include <QTest>

#include "app/day_file_jobs.h"
#include "store/compaction_report.h"
#include "store/loose_store.h"
#include "store/store_faults.h"
#include "support/fake_message_boxes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

namespace {

/// Semaphores by which the test learns how far the compaction is, and lets its copy continue.
struct Gate {
    QSemaphore reached;
    QSemaphore open;
    QSemaphore measured;
};

class GatedDisk : public store::PosixStoreDisk {
public:
    GatedDisk(const std::stop_token& stop, Gate& gate)
        : store::PosixStoreDisk(stop), m_gate(gate), m_atStop(stop, Opener{gate}) {}

    qint32 Size(const QString& path) override {
        const qint32 size = store::PosixStoreDisk::Size(path);
        m_gate.measured.release();
        return size;
    }
    void Copy(const store::SqliteConnection& from, const QString& to) override {
        store::PosixStoreDisk::Copy(from, to);
        m_gate.reached.release();
        m_gate.open.acquire();
    }

private:
    struct Opener {
        Gate& gate;
        void operator()() const { gate.open.release(); }
    };

    Gate& m_gate;
    std::stop_callback<Opener> m_atStop;
};

struct Bench {
    store::LooseStore store;
    store::DayDatabase database{u"DayDate.mdb"_s};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    Gate gate;
    QObject window;  // owner of the message box
    int done = 0;
    std::unique_ptr<DayFileJobs> compaction = std::make_unique<DayFileJobs>(
        DayFileJobsParts{.dayDatabase = database,
                         .folder = ProgramFolder(store.Folder()),
                         .boxes = boxes,
                         .handlers = handlers},
        [this](const std::stop_token& stop) { return std::make_unique<GatedDisk>(stop, gate); });

    void Start() {
        compaction->Compact(&window, [this] { ++done; });
    }
    void StartAndReachTheCopy() {
        Start();
        gate.reached.acquire();
    }
};

}  // namespace

/// Compaction while the windows stay responsive.
class TstDayFileJobs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCallerIsNotBlocked();
    void ARunningCompactionIsNotStartedAgain();
    void ADatabaseInUseIsNotCompacted();
    void TheEndOfTheProgramStopsIt_data();
    void TheEndOfTheProgramStopsIt();
    void AFaultIsReportedInTheReportBox();
};

void TstDayFileJobs::TheCallerIsNotBlocked() {
    Bench bench;
    const QStringList rows = bench.store.Rows();
    const auto before = static_cast<qint32>(store::BytesOf(bench.store.Path()).size());
    bench.StartAndReachTheCopy();
    QVERIFY(!bench.database.IsOpen());
    QCoreApplication::processEvents();
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.done, 0);
    bench.gate.open.release();
    QTRY_COMPARE_WITH_TIMEOUT(bench.done, 1, 60'000);
    const auto after = static_cast<qint32>(store::BytesOf(bench.store.Path()).size());
    QVERIFY(after < before);
    QCOMPARE(bench.boxes.Shown(), QList<Message>{store::CompactionDone(before, after)});
    QCOMPARE(bench.store.Names(), store::NamesAtRest());
    bench.database.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
    QCOMPARE(bench.store.Rows().size(), rows.size() + 1);
}

void TstDayFileJobs::ARunningCompactionIsNotStartedAgain() {
    Bench bench;
    bench.StartAndReachTheCopy();
    bool isTold = false;
    bench.compaction->Compact(&bench.window,
                              [&isTold] { isTold = true; });  // as from a dialog that was opened again
    bench.gate.open.release();
    QTRY_VERIFY_WITH_TIMEOUT(isTold, 60'000);
    QCOMPARE(bench.done, 0);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Owners(), QList<const QObject*>{&bench.window});
    bench.gate.open.release();
    bench.Start();
    QTRY_COMPARE_WITH_TIMEOUT(bench.done, 1, 60'000);
    QCOMPARE(bench.boxes.Shown().size(), 2);
}

void TstDayFileJobs::ADatabaseInUseIsNotCompacted() {
    Bench bench;
    const QByteArray before = store::BytesOf(bench.store.Path());
    const store::DayDatabase lent = std::move(bench.database);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Start());
    QCOMPARE(store::BytesOf(bench.store.Path()), before);
    QVERIFY(!bench.database.IsOpen());
}

void TstDayFileJobs::TheEndOfTheProgramStopsIt_data() {
    QTest::addColumn<bool>("isReported");
    QTest::newRow("in the middle") << false;
    QTest::newRow("when it is about to report") << true;
}

void TstDayFileJobs::TheEndOfTheProgramStopsIt() {
    QFETCH(bool, isReported);
    Bench bench;
    const QStringList rows = bench.store.Rows();
    const QByteArray before = store::BytesOf(bench.store.Path());
    bench.StartAndReachTheCopy();
    if (isReported) {
        bench.gate.open.release();
        // The size is measured before and after; after that only opening and reporting remain.
        bench.gate.measured.acquire(2);
    }
    bench.compaction.reset();
    QCoreApplication::processEvents();
    QCOMPARE(bench.done, 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(!bench.database.IsOpen());
    QCOMPARE(bench.store.Names(), store::NamesAtRest());
    QCOMPARE(bench.store.Rows(), rows);
    QCOMPARE(store::BytesOf(bench.store.Path()) == before, !isReported);
}

void TstDayFileJobs::AFaultIsReportedInTheReportBox() {
    Bench bench;
    bench.gate.open.release();
    QVERIFY(QFile::remove(u"DayDate.mdb"_s));
    bench.Start();
    QTRY_COMPARE_WITH_TIMEOUT(bench.done, 1, 60'000);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
    QVERIFY(bench.boxes.Shown().constFirst().text.contains(u"DayDate.mdb"));
    QVERIFY(bench.database.IsOpen());
}

QTEST_GUILESS_MAIN(TstDayFileJobs)
#include "tst_day_file_jobs.moc"
