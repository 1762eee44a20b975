// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/row_search.h"

#include <QTest>

#include "store/day_store.h"
#include "store/sql_error.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr QStringView kAll = u"SELECT * FROM Kinenbi WHERE Year <> 5";
constexpr int kMany = 150'000;

/// Stores kMany rows "n0", "n1", … of which every tenth has year 5. Their keys range from the smallest to the
/// largest possible one.
void StoreMany(const DayStore& store) {
    store.Raw(
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 149999)"
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) SELECT CASE i WHEN 0 THEN -9223372036854775808 "
        "WHEN "
        "149999 THEN 9223372036854775807 ELSE 3 * i - 200000 END,'n' || i,CASE i % 10 WHEN 9 THEN 5 ELSE 0 "
        "END,1 + i % 12,1 + i % 28,0 FROM n");
}

QStringList Keys(const FoundRows& rows) {
    QStringList keys;
    for (const FoundRow& row : rows) {
        keys.append(QString::number(row.key));
    }
    return keys;
}

struct Bench {
    DayStore store;
    DayDatabase database{store.Path()};

    FoundRows All() { return Done(RowSearch(kAll.toString())); }
    FoundRows Done(RowSearch search) {
        while (!search.Step(database)) {
        }
        return search.Take();
    }
    /// The row's name; empty if it was changed or deleted.
    QString NameOf(const FoundRow& found) {
        const auto row = database.ReadRow(u"Kinenbi", found);
        return row ? row->Text(u"Name") : QString();
    }
};

}  // namespace

/// Searches that find rows and keep only their keys.
class TstRowSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FindsInStoredOrderInOneSlice();
    void ALargeTableTakesSlices();
    void AnIndexFindsTheRowsOfALargeTableAtOnce();
    void CountsWithoutKeepingKeys();
    void FindsByDigest();
    void RefusesStatementsOtherThanSelect();
    void ANumberOutOfRangeIsRefused();
    void ReadsTheRowsThatWereFound();
    void AChangedRowIsNotRead_data();
    void AChangedRowIsNotRead();
    void ATextThatIsNotUtf8IsNotExact();
    void ChangesAndDeletesByTheKey();
    void TheMarkShowsChanges();
    void DigestsDistinguishValues();
};

void TstRowSearch::FindsInStoredOrderInOneSlice() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES "
        "(9,'c',0,1,1,0),(-4,'a',0,12,31,0),(2,'b',0,6,1,0),(3,'five',5,6,1,0)");
    const QStringList expected{u"-4"_s, u"2"_s, u"9"_s};
    RowSearch search(kAll.toString());
    QVERIFY(search.Step(bench.database));
    QCOMPARE(search.Count(), 3);
    QCOMPARE(search.Part(), 1.0);
    QCOMPARE(Keys(search.Take()), expected);
    // The order of the index on Day would be 2, 9, -4.
    QCOMPARE(Keys(bench.Done(RowSearch(u"SELECT * FROM Kinenbi WHERE Day BETWEEN 1 AND 31 AND Year=0"_s))),
             expected);
}

void TstRowSearch::ALargeTableTakesSlices() {
    Bench bench;
    StoreMany(bench.store);
    RowSearch search(kAll.toString());
    int slices = 1;
    double part = 0;
    while (!search.Step(bench.database)) {
        ++slices;
        QVERIFY(search.Part() >= part && search.Part() <= 1);
        part = search.Part();
    }
    QVERIFY2(slices >= 10, qPrintable(QString::number(slices)));
    QCOMPARE(search.Part(), 1.0);
    QCOMPARE(search.Count(), kMany * 9 / 10);
    QCOMPARE(Keys(search.Take()), bench.store.Raw("SELECT id FROM Kinenbi WHERE Year <> 5 ORDER BY id"));
}

void TstRowSearch::AnIndexFindsTheRowsOfALargeTableAtOnce() {
    Bench bench;
    StoreMany(bench.store);
    RowSearch search(u"SELECT * FROM Kinenbi WHERE (Day=3 OR Week=17) AND (Month=0 OR Month=3)"_s);
    QVERIFY(search.Step(bench.database));
    QCOMPARE(Keys(search.Take()),
             bench.store.Raw("SELECT id FROM Kinenbi WHERE Day = 3 AND Month = 3 ORDER BY id"));
}

void TstRowSearch::CountsWithoutKeepingKeys() {
    Bench bench;
    StoreMany(bench.store);
    RowSearch search(kAll.toString());
    search.CountOnly();
    while (!search.Step(bench.database)) {
    }
    QCOMPARE(search.Count(), kMany * 9 / 10);
    QVERIFY(search.Take().isEmpty());
}

void TstRowSearch::FindsByDigest() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES "
        "(1,'a',0,1,2,0),(2,'a',0,2,1,0),(3,'a',0,1,2,0),(4,'b',0,1,2,0)");
    const RowDigest wanted = DigestOf({u"a"_s, 0, 1, 2, 0});
    const FoundRows found =
        bench.Done(RowSearch(u"Kinenbi", [&](const RowDigest& digest) { return digest == wanted; }));
    QCOMPARE(Keys(found), QStringList({u"1"_s, u"3"_s}));
}

void TstRowSearch::RefusesStatementsOtherThanSelect() {
    QVERIFY_THROWS_EXCEPTION(SqlError, RowSearch(u"DELETE * FROM Kinenbi WHERE Year = 1"_s));
    QVERIFY_THROWS_EXCEPTION(SqlError, RowSearch(u"SELECT * FROM Kinenbi WHERE Name=\"a\"b\""_s));
}

void TstRowSearch::ANumberOutOfRangeIsRefused() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,1,2147483648,0)");
    QVERIFY_THROWS_EXCEPTION(SqlError, bench.All());
}

void TstRowSearch::ReadsTheRowsThatWereFound() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('例会',1998,10,-3,0),('x' || char(0) || "
        "'\"',0,0,0,22)");
    const FoundRows found = bench.All();
    const auto first = bench.database.ReadRow(u"Kinenbi", found.at(0));
    QCOMPARE(first->Text(u"Name"), u"例会"_s);
    QCOMPARE(first->Integer(u"Year"), 1998);
    QCOMPARE(first->Integer(u"Month"), 10);
    QCOMPARE(first->Integer(u"Day"), -3);
    QVERIFY(first->IsExact());
    const auto second = bench.database.ReadRow(u"Kinenbi", found.at(1));
    QCOMPARE(second->Text(u"Name"), u"x\0\""_s);
    QCOMPARE(second->Integer(u"Week"), 22);
    QVERIFY(second->IsExact());
}

void TstRowSearch::AChangedRowIsNotRead_data() {
    QTest::addColumn<QByteArray>("change");

    for (const char* set : {"Name = 'b'", "Year = 1", "Month = 2", "Day = 3", "Week = 4"}) {
        QTest::newRow(set) << QByteArray("UPDATE Kinenbi SET ") + set;
    }
    QTest::newRow("deleted") << QByteArray("DELETE FROM Kinenbi");
    QTest::newRow("another row with its key") << QByteArray(
        "DELETE FROM Kinenbi; INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES (1,'b',0,0,1,0)");
}

void TstRowSearch::AChangedRowIsNotRead() {
    QFETCH(QByteArray, change);
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES (1,'a',0,0,1,0)");
    const FoundRow found = bench.All().constFirst();
    QCOMPARE(bench.NameOf(found), u"a"_s);
    bench.store.Raw(change);
    QCOMPARE(bench.NameOf(found), QString());
}

void TstRowSearch::ATextThatIsNotUtf8IsNotExact() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "(CAST(x'61FF' AS TEXT),0,0,1,0),('a' || char(65533),0,0,1,0)");
    const FoundRows found = bench.All();
    QVERIFY(!bench.database.ReadRow(u"Kinenbi", found.at(0))->IsExact());
    QVERIFY(bench.database.ReadRow(u"Kinenbi", found.at(1))->IsExact());
}

void TstRowSearch::ChangesAndDeletesByTheKey() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(id,Name,Year,Month,Day,Week) VALUES "
        "(1,'a\"',0,0,1,0),(2,'a\"',0,0,1,0),(3,'c',0,0,1,0)");
    bench.database.ChangeRow(u"Kinenbi", 2, {{u"Day", 31}, {u"Year", 1998}});
    bench.database.DeleteRow(u"Kinenbi", 3);
    QCOMPARE(bench.store.Raw("SELECT id,Name,Year,Month,Day,Week FROM Kinenbi"),
             QStringList({u"1|a\"|0|0|1|0"_s, u"2|a\"|1998|0|31|0"_s}));
    bench.database.ChangeRow(u"Kinenbi", 2, {{u"Name", u"b"_s}});
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList({u"a\""_s, u"b"_s}));
}

void TstRowSearch::TheMarkShowsChanges() {
    Bench bench;
    const ChangeMark first = bench.database.Mark();
    bench.All();
    QVERIFY(bench.database.Mark() == first);
    bench.database.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,0,1,0)"_s);
    const ChangeMark own = bench.database.Mark();
    QVERIFY(own != first);
    bench.store.Raw("DELETE FROM Kinenbi");
    const ChangeMark foreign = bench.database.Mark();
    QVERIFY(foreign != own);
    DayDatabase reopened(bench.store.Path());
    QVERIFY(reopened.Mark() != DayDatabase(bench.store.Path()).Mark());
}

void TstRowSearch::DigestsDistinguishValues() {
    const std::vector<std::vector<BoundValue>> rows{
        {u"a"_s, 0, 1}, {u"a"_s, 1, 0},          {u"b"_s, 0, 1},
        {u"a"_s, 0},    {u"a\0"_s, 0, 1},        {QString(), 0, 1},
        {u""_s, 1, 0},  {u"a"_s, u"b"_s, u""_s}, {u"a"_s, u""_s, u"b"_s}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows.size(); ++j) {
            const RowDigest one = DigestOf(rows[i]);
            const RowDigest other = DigestOf(rows[j]);
            QCOMPARE(one == other, i == j);
            QCOMPARE(one.first == other.first, i == j);
            QCOMPARE(one.second == other.second, i == j);
        }
    }
}

QTEST_GUILESS_MAIN(TstRowSearch)
#include "tst_row_search.moc"
