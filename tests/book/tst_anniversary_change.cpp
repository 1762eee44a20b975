// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_change.h"

#include <QRandomGenerator>
#include <QTest>
#include <atomic>

#include "book/whole_work.h"
#include "core/errors.h"
#include "days/anniversary_model.h"
#include "days/day_list.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr quint32 kSeed = 0xB00C;
constexpr int kMany = 70'000;

struct Bench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};

    void StoreMany() const {
        store.Raw(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 70000)"
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,1 + i % 12,1 + i % 28,0 FROM n");
    }
    days::ListedRows Listed() { return FindAnniversaries(database, {}).rows; }
    std::unique_ptr<AnniversaryChange> Deletion() {
        days::ListedRows rows = Listed();
        return DeletionOf(database, rows, std::vector<bool>(static_cast<std::size_t>(rows.Count()), true),
                          {});
    }
    int Count() const { return store.Raw("SELECT count(*) FROM Kinenbi").constFirst().toInt(); }
    QStringList Rows() const { return store.Raw("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id"); }
};

/// A row with values from a small range, so that many rows are equal, or differ only in the order of their
/// week code's digits.
days::Anniversary RandomRow(QRandomGenerator& random) {
    days::Anniversary row{random.bounded(2) == 0 ? u"a"_s : u"b"_s, 0, 0, 0, 0};
    row.year = random.bounded(4) == 0 ? 1998 : 0;
    row.month = random.bounded(3) == 0 ? 10 : 0;
    if (random.bounded(3) == 0) {
        row.day = random.bounded(1, 3);
    } else {
        row.week = 10 * random.bounded(1, 4) + random.bounded(1, 4);
    }
    return row;
}

}  // namespace

/// Deleting or changing all rows that are equal to those of a list.
class TstAnniversaryChange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void DeletesWhatTheStatementsWouldDelete();
    void RowsWithEachOthersSwappedWeekAreDeletedTogether();
    void ALargeDeletionIsStoredAtOnceInTheEnd();
    void AnAbandonedChangeChangesNothing_data();
    void AnAbandonedChangeChangesNothing();
    void ARowThatNoStatementCanNameIsDeletedByItsKey_data();
    void ARowThatNoStatementCanNameIsDeletedByItsKey();
    void ANameThatCannotBeReadKeepsTheRowsBeforeIt();
    void RowsOfAnotherProgramStay();
    void RowsWrittenMeanwhileAreIncluded();
    void ALockedFileKeepsItsRows();
};

void TstAnniversaryChange::DeletesWhatTheStatementsWouldDelete() {
    QRandomGenerator random(kSeed);
    for (int round = 0; round < 20; ++round) {
        Bench bench;
        Bench model;
        for (int i = 0; i < 40; ++i) {
            const QString insert = days::InsertText(RandomRow(random));
            bench.database.Execute(insert);
            model.database.Execute(insert);
        }
        const days::ListedRows rows = bench.Listed();
        std::vector<bool> isTicked;
        for (int row = 0; row < rows.Count(); ++row) {
            isTicked.push_back(random.bounded(4) == 0);
        }
        const auto ticked = DeletionOf(bench.database, rows, isTicked, {});
        DoWhole(*ticked);
        for (int row = rows.Count() - 1; row >= 0; --row) {
            if (isTicked[static_cast<std::size_t>(row)]) {
                model.database.Execute(days::DeleteText(AnniversaryOf(*rows.Read(row))));
            }
        }
        QCOMPARE(bench.Rows(), model.Rows());
    }
}

void TstAnniversaryChange::RowsWithEachOthersSwappedWeekAreDeletedTogether() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,0,0,13),('a',0,0,0,31)");
    DoWhole(*bench.Deletion());
    QCOMPARE(bench.Rows(), QStringList());
}

void TstAnniversaryChange::ALargeDeletionIsStoredAtOnceInTheEnd() {
    Bench bench;
    bench.StoreMany();
    const auto deletion = bench.Deletion();
    int slices = 0;
    double part = 0;
    while (bench.database.IsOpen()) {
        QVERIFY(!deletion->Step());
        ++slices;
        QVERIFY2(deletion->Part() >= part && deletion->Part() <= 1,
                 qPrintable(QString::number(deletion->Part())));
        part = deletion->Part();
    }
    QVERIFY2(slices > kMany / 2000, qPrintable(QString::number(slices)));
    DoWhole(*deletion);
    QVERIFY(bench.database.IsOpen());
    QVERIFY(!bench.database.IsInTransaction());
    QVERIFY(!deletion->IsGivenUp());
    QCOMPARE(bench.Count(), 0);
}

void TstAnniversaryChange::AnAbandonedChangeChangesNothing_data() {
    QTest::addColumn<bool>("isWriting");
    QTest::addColumn<bool>("isDeleted");

    QTest::newRow("while it looks for the rows") << false << false;
    QTest::newRow("while it writes") << true << false;
    QTest::newRow("deleted while it looks for the rows") << false << true;
    QTest::newRow("deleted while it writes") << true << true;
}

void TstAnniversaryChange::AnAbandonedChangeChangesNothing() {
    QFETCH(bool, isWriting);
    QFETCH(bool, isDeleted);
    Bench bench;
    bench.StoreMany();
    std::atomic<bool> isHeld = true;
    std::atomic<int> changed = 0;
    days::ListedRows rows = bench.Listed();
    auto work = std::make_unique<AnniversaryChange>(
        bench.database, rows, std::vector<bool>(kMany, true),
        [&](store::DayDatabase& database, qint64 key) {
            database.DeleteRow(u"Kinenbi", key);
            ++changed;
            while (changed == 5 && isHeld) {
                std::this_thread::yield();
            }
        },
        Corrections{});
    QVERIFY(!work->Step());
    while (isWriting && changed < 5) {
        work->Step();
    }
    work->GiveUp();
    isHeld = false;
    if (!isDeleted) {
        DoWhole(*work);
        QVERIFY(work->IsGivenUp());
    }
    work.reset();
    QVERIFY(bench.database.IsOpen());
    QVERIFY(!bench.database.IsInTransaction());
    QCOMPARE(bench.Count(), kMany);
}

void TstAnniversaryChange::ARowThatNoStatementCanNameIsDeletedByItsKey_data() {
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("double quote") << QByteArray("'x\"y'");
    QTest::newRow("NUL") << QByteArray("'x' || char(0) || 'y'");
    QTest::newRow("no UTF-8") << QByteArray("CAST(x'61FF' AS TEXT)");
}

void TstAnniversaryChange::ARowThatNoStatementCanNameIsDeletedByItsKey() {
    QFETCH(QByteArray, name);
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES (1,'a',0,1,1,0),(2," + name +
                    ",0,1,0,13),(3,'b',0,1,1,0),(4," + name + ",0,1,0,31)");
    const days::ListedRows rows = bench.Listed();
    DeleteTicked(bench.database, rows, {true, true, false, false});
    QCOMPARE(bench.store.Raw("SELECT id FROM Kinenbi"), QStringList({u"3"_s, u"4"_s}));
}

void TstAnniversaryChange::ANameThatCannotBeReadKeepsTheRowsBeforeIt() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,1,1,0),('b',0,1,0,-5),('c',0,1,1,0)");
    const auto deletion = bench.Deletion();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, DoWhole(*deletion));
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList({u"a"_s, u"b"_s}));
}

void TstAnniversaryChange::RowsOfAnotherProgramStay() {
    Bench bench;
    bench.StoreMany();
    const auto deletion = bench.Deletion();
    bench.store.Raw("UPDATE Kinenbi SET Name = 'other' WHERE id IN (7, 69999)");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, DoWhole(*deletion));
    QCOMPARE(bench.store.Raw("SELECT id,Name FROM Kinenbi"), QStringList({u"7|other"_s, u"69999|other"_s}));
}

void TstAnniversaryChange::RowsWrittenMeanwhileAreIncluded() {
    Bench bench;
    bench.StoreMany();
    const auto deletion = bench.Deletion();
    for (int slice = 0; slice < 40; ++slice) {
        QVERIFY(!deletion->Step());
    }
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('n1',0,2,2,0),('new',0,2,2,0)");
    DoWhole(*deletion);
    // The new row 'n1' equals a ticked one.
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList{u"new"_s});
}

void TstAnniversaryChange::ALockedFileKeepsItsRows() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,1,1,0)");
    const auto deletion = bench.Deletion();
    store::RawConnection other(bench.store.Path());
    other.Run("BEGIN IMMEDIATE");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, DoWhole(*deletion));
    other.Run("COMMIT");
    QCOMPARE(bench.Count(), 1);
}

QTEST_GUILESS_MAIN(TstAnniversaryChange)
#include "tst_anniversary_change.moc"
