// SPDX-License-Identifier: GPL-3.0-or-later
#include <sqlite3.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include "store/compaction_case.h"
#include "store/compaction_report.h"
#include "store/day_recovery.h"
#include "store/full_disk.h"
#include "store/neighbour.h"
#include "store/sql_error.h"
#include "store/store_faults.h"
#include "store/watched_disk.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QString kNoRoom = u"ディスクの空き容量が足りません。"_s;

/// The outcome of a failing step.
enum class Outcome {
    Success,        // the failure has no effect
    ReportedError,  // the compaction did not begin: reported like the error of any handler
    Restored,       // the failure message, and the file is unchanged
    KeptSmaller     // the failure message, and only the compacted file exists
};

/// Simulates a disk that becomes full while the file is compacted.
class FullWhileCompacting : public PosixStoreDisk {
public:
    explicit FullWhileCompacting(rlim_t room) : m_room(room) {}

    void Compact(SqliteConnection& from, const QString& to) override {
        const FullDisk disk(m_room);
        PosixStoreDisk::Compact(from, to);
    }

private:
    rlim_t m_room;
};

}  // namespace

/// Compaction with a failing disk or a damaged file.
class TstCompactionFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFailingStepLosesNoRow_data();
    void AFailingStepLosesNoRow();
    void IfNothingCanBeRenamedTheNextStartTidiesUp();
    void AFullDiskWhileCopying();
    void AFullDiskWhileCompacting();
    void AMissingFileIsReported();
    void ADamagedFileFailsUntouched_data();
    void ADamagedFileFailsUntouched();
    void AVanishedDatabaseIsRestored();
    void AnythingInTheWayLosesNoRow_data();
    void AnythingInTheWayLosesNoRow();
    void AReadOnlyFolderLosesNoRow();
    void AFileBeyondTheRangeIsAnOverflow();
    void ADamagedCompactedFileIsNotUsed_data();
    void ADamagedCompactedFileIsNotUsed();
    void AFileLockedAtReopeningIsOpenedLater();
};

void TstCompactionFaults::AFailingStepLosesNoRow_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isDone");
    QTest::addColumn<Outcome>("outcome");
    const auto rows = [](const char* name, int first, int last, Outcome before, Outcome after) {
        for (int step = first; step <= last; ++step) {
            QTest::addRow("%s, step %d", name, step) << step << false << before;
            QTest::addRow("%s, step %d, after it was done", name, step) << step << true << after;
        }
    };
    rows("size before", 1, 1, Outcome::ReportedError, Outcome::ReportedError);
    rows("removing a stale target", 2, 5, Outcome::Success, Outcome::Success);
    rows("removing a stale copy", 6, 9, Outcome::ReportedError, Outcome::ReportedError);
    rows("copying", 10, 10, Outcome::ReportedError, Outcome::ReportedError);
    rows("compacting", 11, 11, Outcome::Restored, Outcome::Restored);
    rows("renaming", 12, 12, Outcome::Restored, Outcome::Restored);
    QTest::newRow("removing the copy") << 13 << false << Outcome::Restored;
    QTest::newRow("removing the copy, after it was done") << 13 << true << Outcome::KeptSmaller;
    rows("size after", 14, 14, Outcome::KeptSmaller, Outcome::KeptSmaller);
}

void TstCompactionFaults::AFailingStepLosesNoRow() {
    QFETCH(int, step);
    QFETCH(bool, isDone);
    QFETCH(Outcome, outcome);
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    const QByteArray before = BytesOf(bench.store.Path());
    int faults = 0;
    WatchedDisk disk([&](int now, bool isNowDone) {
        if (now == step && isNowDone == isDone) {
            ++faults;
            throw RunTimeError(kNoRoom);
        }
    });
    QCOMPARE(bench.Fault(disk), outcome == Outcome::ReportedError ? kNoRoom : QString());
    QCOMPARE(faults, 1);
    const QList<Message> shown = bench.boxes.Shown();
    if (outcome == Outcome::ReportedError) {
        QVERIFY(shown.isEmpty());
    } else if (outcome == Outcome::Success) {
        QCOMPARE(shown.constFirst().icon, MessageIcon::Information);
    } else {
        QCOMPARE(shown, QList<Message>{CompactionFailed()});
    }
    QVERIFY(bench.handle.IsOpen());
    const bool isAsItWas = outcome == Outcome::ReportedError || outcome == Outcome::Restored;
    QCOMPARE(BytesOf(bench.store.Path()) == before, isAsItWas);
    QCOMPARE(bench.store.Rows(), rows);
    if (step == 10 && isDone) {  // a complete copy is removed by the next start
        QVERIFY(QFile::remove(u"CopyDate.mdb"_s));
    }
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QCOMPARE(bench.Fault(), QString());  // the disk has space again
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
}

void TstCompactionFaults::IfNothingCanBeRenamedTheNextStartTidiesUp() {
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    WatchedDisk disk([](int step, bool isDone) {
        if (step >= 12 && !isDone) {
            throw RunTimeError(kNoRoom);
        }
    });
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(bench.boxes.Shown(), QList<Message>{CompactionFailed()});
    QCOMPARE(bench.store.Rows(), rows);
    QVERIFY(QFile::exists(u"CopyDate.mdb"_s));
    bench.handle.Close();
    RecoverDayDatabase(Here());
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompactionFaults::AFullDiskWhileCopying() {
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    const QByteArray before = BytesOf(bench.store.Path());
    for (const rlim_t room : {rlim_t{0}, rlim_t{1000}, rlim_t{65'536}, rlim_t(before.size() - 1)}) {
        QString fault;
        {
            const FullDisk disk(room);
            fault = bench.Fault();
        }
        QVERIFY2(fault.startsWith(u"CopyDate.mdb\r\n"), qPrintable(fault));
        QVERIFY(bench.handle.IsOpen());
        QCOMPARE(BytesOf(bench.store.Path()), before);
        QCOMPARE(bench.store.Names(), NamesAtRest());
    }
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompactionFaults::AFullDiskWhileCompacting() {
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    const QByteArray before = BytesOf(bench.store.Path());
    for (const rlim_t room : {0U, 100U, 4096U, 10'000U, 20'480U}) {
        FullWhileCompacting disk(room);
        QCOMPARE(bench.Fault(disk), QString());
        QCOMPARE(bench.boxes.Shown().constLast(), CompactionFailed());
        QVERIFY(bench.handle.IsOpen());
        QCOMPARE(BytesOf(bench.store.Path()), before);
        QCOMPARE(bench.store.Names(), NamesAtRest());
    }
    QCOMPARE(bench.Fault(), QString());
    QCOMPARE(bench.store.Rows(), rows);
}

void TstCompactionFaults::AMissingFileIsReported() {
    CompactionCase bench;
    QVERIFY(QFile::remove(u"DayDate.mdb"_s));
    const QString fault = bench.Fault();
    QVERIFY2(fault.startsWith(u"DayDate.mdb\r\n"), qPrintable(fault));
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(!bench.handle.TryOpen());
    QCOMPARE(bench.store.Names(), QStringList(u"DayDate.lock"_s));
}

void TstCompactionFaults::ADamagedFileFailsUntouched_data() {
    QTest::addColumn<QByteArray>("bytes");
    const LooseStore store;
    const QByteArray whole = BytesOf(store.Path());
    QTest::newRow("empty, whose ratio would be no number") << QByteArray();
    QTest::newRow("a text") << QByteArray("This is a text. ").repeated(1000);
    QTest::newRow("truncated") << whole.chopped(4096);
    QTest::newRow("a page of zeros") << QByteArray(whole).replace(8192, 4096, QByteArray(4096, '\0'));
}

void TstCompactionFaults::ADamagedFileFailsUntouched() {
    QFETCH(QByteArray, bytes);
    CompactionCase bench(false);
    SetBytes(u"DayDate.mdb"_s, bytes);
    QVERIFY(!bench.Fault().isEmpty());  // it cannot be reopened
    QCOMPARE(bench.boxes.Shown(), QList<Message>{CompactionFailed()});
    QVERIFY(!bench.handle.TryOpen());
    QCOMPARE(BytesOf(u"DayDate.mdb"_s), bytes);
    QCOMPARE(bench.store.Names(), NamesAtRest());
}

void TstCompactionFaults::AVanishedDatabaseIsRestored() {
    CompactionCase bench;
    const QStringList rows = bench.store.Rows();
    WatchedDisk withCopy([](int step, bool isDone) {
        if (step == 12 && !isDone) {
            QFile::remove(u"DayDate.mdb"_s);
            throw RunTimeError(kNoRoom);
        }
    });
    QCOMPARE(bench.Fault(withCopy), QString());
    QCOMPARE(bench.store.Rows(), rows);
    WatchedDisk withTarget([](int step, bool isDone) {
        if (step == 12 && !isDone) {
            QFile::remove(u"DayDate.mdb"_s);
            QFile::remove(u"CopyDate.mdb"_s);
            throw RunTimeError(kNoRoom);
        }
    });
    QCOMPARE(bench.Fault(withTarget), QString());
    QCOMPARE(bench.store.Rows(), rows);
    QCOMPARE(bench.boxes.Shown(), QList<Message>({CompactionFailed(), CompactionFailed()}));
    QVERIFY(bench.handle.IsOpen());
    QCOMPARE(bench.store.Names(), NamesAtRest());
}

void TstCompactionFaults::AnythingInTheWayLosesNoRow_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isReported");
    QTest::newRow("copy") << u"CopyDate.mdb"_s << true;
    QTest::newRow("target") << u"BUDate.mdb"_s << false;
}

void TstCompactionFaults::AnythingInTheWayLosesNoRow() {
    QFETCH(QString, name);
    QFETCH(bool, isReported);
    CompactionCase bench;
    const QByteArray before = BytesOf(bench.store.Path());
    QVERIFY(QDir().mkpath(name + u"/inside"));
    QCOMPARE(!bench.Fault().isEmpty(), isReported);
    QCOMPARE(bench.boxes.Shown(), isReported ? QList<Message>{} : QList<Message>{CompactionFailed()});
    QVERIFY(bench.handle.IsOpen());
    QCOMPARE(BytesOf(bench.store.Path()), before);
    QVERIFY(QDir(name).removeRecursively());
    QCOMPARE(bench.store.Names(), NamesAtRest());
}

void TstCompactionFaults::AReadOnlyFolderLosesNoRow() {
    CompactionCase bench(false);
    const QByteArray before = BytesOf(bench.store.Path());
    QCOMPARE(chmod(qPrintable(bench.store.Path()), 0666), 0);
    QCOMPARE(chmod(qPrintable(bench.store.Folder()), 0555), 0);
    const QString told = ToldByNobody([&bench] {
        const QString fault = bench.Fault();
        return QStringList({fault.section(u'\r', 0, 0), bench.handle.IsOpen() ? u"open"_s : u"closed"_s})
            .join(u' ');
    });
    QCOMPARE(chmod(qPrintable(bench.store.Folder()), 0755), 0);
    QCOMPARE(told, u"CopyDate.mdb open"_s);
    QCOMPARE(BytesOf(bench.store.Path()), before);
    QCOMPARE(bench.store.Names(), QStringList(u"DayDate.mdb"_s));  // the lock file was removed as well
}

void TstCompactionFaults::AFileBeyondTheRangeIsAnOverflow() {
    CompactionCase bench;
    QVERIFY(QFile::rename(u"DayDate.mdb"_s, u"DayDate.old"_s));
    QFile huge(u"DayDate.mdb"_s);
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{1} << 31));
    QCOMPARE(bench.Fault(), OverflowError().Reason());
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(!bench.handle.TryOpen());  // the file has no tables
    QCOMPARE(huge.size(), qint64{1} << 31);
}

void TstCompactionFaults::ADamagedCompactedFileIsNotUsed_data() {
    QTest::addColumn<QByteArray>("spoil");
    QTest::newRow("a page of zeros") << QByteArray();
    QTest::newRow("a table is missing") << QByteArray("DROP TABLE Holiday");
}

void TstCompactionFaults::ADamagedCompactedFileIsNotUsed() {
    QFETCH(QByteArray, spoil);
    CompactionCase bench;
    const QByteArray before = BytesOf(bench.store.Path());
    WatchedDisk disk([&](int step, bool isDone) {
        const QString target = bench.store.PathOf(u"BUDate.mdb"_s);
        if (step != 11 || !isDone) {
            return;
        }
        if (spoil.isEmpty()) {
            SetBytes(target, BytesOf(target).replace(8192, 4096, QByteArray(4096, '\0')));
        } else {
            RawConnection(target).Run(spoil);
        }
    });
    QCOMPARE(bench.Fault(disk), QString());
    QCOMPARE(bench.boxes.Shown(), QList<Message>{CompactionFailed()});
    QCOMPARE(BytesOf(bench.store.Path()), before);
    QCOMPARE(bench.store.Names(), NamesAtRest());
    QVERIFY(bench.handle.TryOpen());
}

void TstCompactionFaults::AFileLockedAtReopeningIsOpenedLater() {
    CompactionCase bench(false);
    std::unique_ptr<RawConnection> stranger;
    Neighbour neighbour(
        [&] {
            stranger = std::make_unique<RawConnection>(bench.store.Path());
            stranger->Run("BEGIN EXCLUSIVE");
        },
        [&] { stranger.reset(); });
    bench.handle = DayDatabase(u"DayDate.mdb"_s);
    const QStringList rows = bench.store.Rows();
    WatchedDisk disk([&](int step, bool isDone) {
        if (step == 14 && isDone) {  // the new file has replaced the old one
            neighbour.DoFirst();
        }
    });
    const QString fault = bench.Fault(disk);
    QVERIFY2(fault.startsWith(u"DayDate.mdb\r\nデータベースはほかのプログラムで使用中です。"),
             qPrintable(fault));
    QVERIFY2(fault.endsWith(u"開き直します。"), qPrintable(fault));
    QCOMPARE(bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"still closed: DayDate.mdb.*使用中"_s));
    QVERIFY(!bench.handle.TryOpen());
    QTest::failOnWarning(QRegularExpression(u"still closed"_s));  // logged only once
    QVERIFY(!bench.handle.TryOpen());
    QVERIFY_THROWS_EXCEPTION(SqlError, bench.handle.RunQuery(u"SELECT Holiday.Date FROM Holiday"_s));
    neighbour.DoSecond();
    QCOMPARE(bench.handle.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s).Count(), 150);
    QCOMPARE(bench.store.Rows(), rows);
    bench.handle.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
    QCOMPARE(bench.store.Rows().size(), rows.size() + 1);
}

QTEST_GUILESS_MAIN(TstCompactionFaults)
#include "tst_compaction_faults.moc"
