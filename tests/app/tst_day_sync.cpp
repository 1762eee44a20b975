// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/day_sync.h"
#include "platform/time/virtual_time.h"
#include "store/day_transaction.h"
#include "support/fake_folder_watch.h"
#include "support/files.h"
#include "sync/day_file.h"
#include "sync/sync_place.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSoon = 2000;
constexpr int kTenMinutes = 600'000;

/// A merge on virtual time, with real files, and another computer.
struct Bench {
    QTemporaryDir shared;
    store::DayStore own;
    platform::VirtualTime time{QDateTime(QDate(2026, 11, 23), QTime(12, 0)), 1000};
    store::DayDatabase database{own.Path()};
    SyncSettings settings{.use = true, .folder = shared.path(), .computer = u"study"_s};
    FakeFolderWatch* watch = nullptr;
    bool isMarking = false;
    int changes = 0;
    int statuses = 0;
    sync::SyncComputer other{shared.path(), u"laptop"_s};
    std::unique_ptr<DaySync> sync;

    void Start(bool canWatch = true) {
        auto made = canWatch ? std::make_unique<FakeFolderWatch>() : nullptr;
        watch = made.get();
        sync = std::make_unique<DaySync>(DaySyncParts{.dayDatabase = database,
                                                      .folder = ProgramFolder(own.Folder()),
                                                      .clock = time,
                                                      .timers = time,
                                                      .settings = settings,
                                                      .watch = std::move(made),
                                                      .isMarking = [this] { return isMarking; },
                                                      .daysChanged = [this] { ++changes; },
                                                      .statusChanged = [this] { ++statuses; }});
    }
    /// Lets the requested merge take place, and waits for its end.
    bool Merge(int after = kSoon) {
        const int before = statuses;
        time.Advance(after);
        return QTest::qWaitFor([&] { return statuses > before; }, 30'000);
    }
    QString OwnFile() const { return shared.filePath(u"study.tickwell-days"_s); }
    QStringList Names() const { return own.Raw(R"(SELECT "Name" FROM "Kinenbi" ORDER BY "Name")"); }
    void Add(const QString& name) {
        database.Execute(u"INSERT INTO Kinenbi VALUES(\"%1\",0,5,5,0)"_s.arg(name));
    }
};

}  // namespace

/// When and how the running program merges.
class TstDaySync : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItMergesAfterTheStart();
    void AChangeOfTheFolderIsMerged();
    void WithoutReportsItMergesEveryTenMinutes();
    void AChangeOfTheBookIsMerged();
    void WithoutNewsOnlyTheTimeIsNew();
    void NothingIsMergedWhileDaysAreMarked();
    void MarkingThatBeginsMeanwhileIsWaitedFor();
    void AChangeMeanwhileIsMergedToo();
    void AChangeMeanwhileIsSentSoon();
    void AChangeOfTheBookAloneIsMerged();
    void NothingIsMergedWhileTheDatabaseIsInUse();
    void ManyRowsAreStoredOnTheThread();
    void TheEndWaitsForAMergeThatIsStored();
    void NewSettingsAreFollowed();
    void AProblemIsToldAndGoesAway();
};

void TstDaySync::ItMergesAfterTheStart() {
    Bench bench;
    bench.other.Add("a");
    bench.other.Merge();
    bench.Start();
    QCOMPARE(bench.sync->StatusText(), u"まだ合わせていません。"_s);
    bench.time.Advance(kSoon - 1);
    QVERIFY(!QFile::exists(bench.own.Folder() + u"/DaySync.db"));
    QVERIFY(bench.Merge(1));
    QCOMPARE(bench.Names(), QStringList{u"a"_s});
    QCOMPARE(bench.changes, 1);
    QVERIFY(QFile::exists(bench.OwnFile()));
    QCOMPARE(bench.sync->StatusText(), u"最後に合わせた時刻：2026/11/23 12:00（コンピューター2台）"_s);
    QCOMPARE(bench.watch->folder, bench.shared.path());
}

void TstDaySync::AChangeOfTheFolderIsMerged() {
    Bench bench;
    bench.Start();
    QVERIFY(bench.Merge());
    bench.other.Add("a");
    bench.other.Merge();
    bench.watch->changed();
    bench.watch->changed();
    QVERIFY(bench.Merge());
    QCOMPARE(bench.Names(), QStringList{u"a"_s});
}

void TstDaySync::WithoutReportsItMergesEveryTenMinutes() {
    Bench bench;
    bench.Start(false);
    QVERIFY(bench.Merge());
    bench.other.Add("a");
    bench.other.Merge();
    bench.time.Advance(kTenMinutes - kSoon - 1);
    QVERIFY(bench.Names().isEmpty());
    bench.time.Advance(1);
    QVERIFY(bench.Merge());
    QCOMPARE(bench.Names(), QStringList{u"a"_s});
}

void TstDaySync::AChangeOfTheBookIsMerged() {
    Bench bench;
    bench.Start();
    QVERIFY(bench.Merge());
    bench.sync->LookAtBook();
    QCOMPARE(bench.time.UntilNext(), std::optional<qint64>(kTenMinutes - kSoon));
    bench.Add(u"a"_s);
    bench.sync->LookAtBook();
    QVERIFY(bench.Merge());
    QCOMPARE(bench.changes, 0);
    bench.other.Merge();
    QCOMPARE(bench.other.Names(), QStringList{u"a"_s});
}

void TstDaySync::WithoutNewsOnlyTheTimeIsNew() {
    Bench bench;
    bench.Start();
    QVERIFY(bench.Merge());
    bench.sync->Request();
    QVERIFY(bench.Merge());
    const QDateTime written = QFileInfo(bench.OwnFile()).lastModified();
    bench.sync->Request();
    QVERIFY(bench.Merge(60'000));
    QCOMPARE(bench.sync->StatusText(), u"最後に合わせた時刻：2026/11/23 12:01（コンピューター1台）"_s);
    QCOMPARE(QFileInfo(bench.OwnFile()).lastModified(), written);
    QCOMPARE(bench.changes, 0);
}

void TstDaySync::NothingIsMergedWhileDaysAreMarked() {
    Bench bench;
    bench.other.Add("a");
    bench.other.Merge();
    bench.isMarking = true;
    bench.Start();
    bench.time.Advance(10 * kTenMinutes);
    QCOMPARE(bench.statuses, 0);
    QVERIFY(!QFile::exists(bench.own.Folder() + u"/DaySync.db"));
    bench.isMarking = false;
    QVERIFY(bench.Merge(5000));
    QCOMPARE(bench.Names(), QStringList{u"a"_s});
}

void TstDaySync::MarkingThatBeginsMeanwhileIsWaitedFor() {
    Bench bench;
    bench.other.Add("a");
    bench.other.Merge();
    bench.Start();
    bench.time.Advance(kSoon);
    bench.isMarking = true;
    // The plan arrives, is not stored, and is made again after five seconds.
    QTRY_COMPARE(bench.time.UntilNext(), std::optional<qint64>(5000));
    QVERIFY(bench.Names().isEmpty());
    bench.isMarking = false;
    QVERIFY(QTest::qWaitFor(
        [&] {
            bench.time.Advance(1000);
            return bench.statuses > 0;
        },
        30'000));
    QCOMPARE(bench.Names(), QStringList{u"a"_s});
}

void TstDaySync::AChangeMeanwhileIsMergedToo() {
    Bench bench;
    bench.other.Add("a");
    bench.other.Merge();
    bench.Start();
    bench.time.Advance(kSoon);
    bench.Add(u"b"_s);
    QVERIFY(QTest::qWaitFor(
        [&] {
            bench.time.Advance(1000);
            return bench.statuses > 0;
        },
        30'000));
    QCOMPARE(bench.Names(), (QStringList{u"a"_s, u"b"_s}));
    bench.other.Merge();
    QCOMPARE(bench.other.Names(), (QStringList{u"a"_s, u"b"_s}));
}

void TstDaySync::AChangeMeanwhileIsSentSoon() {
    Bench bench;
    bench.Start();
    bench.time.Advance(kSoon);
    bench.Add(u"b"_s);
    const qint64 began = bench.time.SinceBoot();
    QVERIFY(QTest::qWaitFor(
        [&] {
            bench.time.Advance(100);
            bench.other.Merge();
            return bench.other.Names() == QStringList{u"b"_s};
        },
        60'000));
    QVERIFY(bench.time.SinceBoot() - began < kTenMinutes / 2);
}

/// Also if the files are those that were read last.
void TstDaySync::AChangeOfTheBookAloneIsMerged() {
    Bench bench;
    bench.Start();
    QVERIFY(bench.Merge());
    bench.sync->Request();
    QVERIFY(bench.Merge());
    bench.Add(u"a"_s);
    bench.sync->LookAtBook();
    QVERIFY(bench.Merge());
    bench.other.Merge();
    QCOMPARE(bench.other.Names(), QStringList{u"a"_s});
}

void TstDaySync::NothingIsMergedWhileTheDatabaseIsInUse() {
    Bench bench;
    bench.Start();
    store::DayDatabase lent = std::move(bench.database);  // as during a compaction
    bench.time.Advance(kTenMinutes);
    QCOMPARE(bench.statuses, 0);
    bench.database = std::move(lent);
    QVERIFY(bench.Merge(5000));
}

void TstDaySync::ManyRowsAreStoredOnTheThread() {
    Bench bench;
    bench.other.Raw(R"(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)
        INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") SELECT 'row ' || i,0,5,5,0 FROM n)");
    bench.other.Merge();
    bench.Start();
    bench.time.Advance(kSoon);
    bool wasClosed = false;
    QVERIFY(QTest::qWaitFor(
        [&] {
            wasClosed = wasClosed || !bench.database.IsOpen();
            return bench.statuses > 0;
        },
        60'000));
    QVERIFY(bench.database.IsOpen());
    QCOMPARE(bench.Names().size(), 2000);
    QCOMPARE(bench.changes, 1);
    bench.database.Execute(u"DELETE * FROM Kinenbi WHERE Day=5"_s);
    bench.sync->LookAtBook();
    QVERIFY(bench.Merge());
    bench.other.Merge();
    QVERIFY(bench.other.Names().isEmpty());
}

void TstDaySync::TheEndWaitsForAMergeThatIsStored() {
    Bench bench;
    bench.other.Raw(R"(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)
        INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") SELECT 'row ' || i,0,5,5,0 FROM n)");
    bench.other.Merge();
    bench.Start();
    bench.time.Advance(kSoon);
    QVERIFY(QTest::qWaitFor([&] { return !bench.database.IsOpen(); }, 60'000));
    bench.sync.reset();
    QVERIFY(bench.database.IsOpen());
    QCOMPARE(bench.Names().size(), 5000);
    QCOMPARE(bench.statuses, 0);
}

void TstDaySync::NewSettingsAreFollowed() {
    Bench bench;
    bench.Start();
    QVERIFY(bench.Merge());
    bench.sync->Follow();  // nothing has changed
    QCOMPARE(bench.time.UntilNext(), std::optional<qint64>(kTenMinutes - kSoon));
    const QTemporaryDir another;
    bench.settings.folder = another.path();
    bench.settings.computer = u"desk"_s;
    bench.sync->Follow();
    QVERIFY(bench.Merge());
    QCOMPARE(bench.watch->folder, another.path());
    QVERIFY(QFile::exists(another.filePath(u"desk.tickwell-days"_s)));
    QVERIFY(QFile::exists(bench.OwnFile()));
}

void TstDaySync::AProblemIsToldAndGoesAway() {
    Bench bench;
    QVERIFY(QDir(bench.shared.path()).mkdir(u"later"_s));
    const QString folder = bench.shared.filePath(u"later"_s);
    QVERIFY(QDir().rmdir(folder));
    bench.settings.folder = folder;
    bench.Start();
    QVERIFY(bench.Merge());
    QCOMPARE(bench.sync->StatusText(), u"まだ合わせていません。\nフォルダーがありません。"_s);
    QVERIFY(QDir().mkdir(folder));
    bench.sync->Request();
    QVERIFY(bench.Merge());
    QCOMPARE(bench.sync->StatusText(), u"最後に合わせた時刻：2026/11/23 12:00（コンピューター1台）"_s);
}

QTEST_GUILESS_MAIN(TstDaySync)
#include "tst_day_sync.moc"
