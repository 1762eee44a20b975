// SPDX-License-Identifier: GPL-3.0-or-later
#include <sqlite3.h>

#include <QTest>

#include "store/compaction_case.h"
#include "store/sql_error.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr qint64 kMostMemory = qint64{97} * 1024 * 1024;  // the limit, and a little that it does not count
const QByteArray kLong = "length(hex(zeroblob(400000000)))";  // 800 MB

/// An SQL expression of `count` texts of nearly a megabyte each, all needed at the same time.
QByteArray ManyTexts(int count) {
    QByteArrayList texts;
    for (int i = 0; i < count; ++i) {
        texts.append("hex(zeroblob(490000 + Year + " + QByteArray::number(i) + "))");
    }
    return "max(" + texts.join(',') + ')';
}

QByteArray WithSchema(const QByteArray& change) {
    return "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET " + change;
}

}  // namespace

/// A crafted file cannot make SQLite allocate gigabytes.
class TstStoreLimits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ACraftedFileGetsLittleMemory_data();
    void ACraftedFileGetsLittleMemory();
    void AChangeOfManyRowsHasEnoughMemory();
};

void TstStoreLimits::ACraftedFileGetsLittleMemory_data() {
    QTest::addColumn<QByteArray>("sql");
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("writing");
    const QString none;
    const QString tooLong = u"データベースに長すぎる値があります。(18)"_s;
    const QString noMemory = u"データベースを扱うメモリが足りません。(7)"_s;
    QTest::newRow("a check") << "PRAGMA ignore_check_constraints = 1; CREATE TABLE Extra(a CHECK(" + kLong +
                                    " > a)); INSERT INTO Extra VALUES (1)"
                             << none << none;
    QTest::newRow("a check in a table of the schema")
        << WithSchema(R"(sql = replace(sql, '"Week" INTEGER', '"Week" INTEGER CHECK()" + kLong +
                      " > 0)') WHERE name = 'Kinenbi'")
        << none << none;
    QTest::newRow("a computed column")
        << "CREATE TABLE Extra(a); INSERT INTO Extra VALUES (1);" +
               WithSchema("sql = 'CREATE TABLE Extra(a, b NOT NULL AS (" + kLong + "))' WHERE name = 'Extra'")
        << tooLong << none;
    QTest::newRow("an index on one long text")
        << "CREATE INDEX Extra ON Kinenbi(" + kLong + ")" << none << tooLong;
    QTest::newRow("an index on many texts")
        << "CREATE INDEX Extra ON Kinenbi(" + ManyTexts(120) + ")" << none << noMemory;
}

void TstStoreLimits::ACraftedFileGetsLittleMemory() {
    QFETCH(QByteArray, sql);
    QFETCH(QString, opening);
    QFETCH(QString, writing);
    const DayStore store;
    store.Raw(sql);
    sqlite3_memory_highwater(1);
    QCOMPARE(OpeningFault(store.Path()), opening.isEmpty() ? opening : Told(store.Path(), opening));
    if (opening.isEmpty()) {
        DayDatabase database(store.Path());
        QString fault;
        try {
            database.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
        } catch (const SqlError& error) {
            fault = error.Reason();
        }
        QCOMPARE(fault, writing);
        QCOMPARE(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Day = 3"_s).Count(),
                 writing.isEmpty() ? 1 : 0);
    }
    QVERIFY2(sqlite3_memory_highwater(0) < kMostMemory,
             qPrintable(QString::number(sqlite3_memory_highwater(0))));
}

void TstStoreLimits::AChangeOfManyRowsHasEnoughMemory() {
    constexpr int kRows = 50'000;
    CompactionCase bench(false);
    Fill(bench.store, kRows);
    bench.handle = DayDatabase(u"DayDate.mdb"_s);
    sqlite3_memory_highwater(1);
    QVERIFY(bench.handle.Execute(u"UPDATE Kinenbi SET Year=1998 WHERE Week=0"_s) > kRows);
    QCOMPARE(bench.Fault(), QString());
    QVERIFY(bench.handle.Execute(u"DELETE * FROM Kinenbi WHERE Year=1998"_s) > kRows);
    QVERIFY2(sqlite3_memory_highwater(0) < kMostMemory / 8,
             qPrintable(QString::number(sqlite3_memory_highwater(0))));
}

QTEST_GUILESS_MAIN(TstStoreLimits)
#include "tst_store_limits.moc"
