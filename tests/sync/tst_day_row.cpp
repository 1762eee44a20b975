// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "sync/day_row.h"

using namespace tickwell;
using namespace tickwell::sync;

/// A row as one line.
class TstDayRow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ARowIsItsTableAndItsValues_data();
    void ARowIsItsTableAndItsValues();
    void SomeRowsStayOnTheirComputer_data();
    void SomeRowsStayOnTheirComputer();
    void OtherTextsAreNoRows_data();
    void OtherTextsAreNoRows();
};

void TstDayRow::ARowIsItsTableAndItsValues_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArrayList>("values");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("anniversary") << "Kinenbi" << QByteArrayList{"結婚記念日", "0", "5", "0", "22"}
                                 << QByteArray("Kinenbi\t結婚記念日\t0\t5\t0\t22");
    QTest::newRow("escapes") << "Kinenbi"
                             << QByteArrayList{QByteArray("a\tb\nc\rd\\e\0f", 11), "-1", "2147483647", "0",
                                               "0"}
                             << QByteArray("Kinenbi\ta\\tb\\nc\\rd\\\\e\\0f\t-1\t2147483647\t0\t0");
    QTest::newRow("not UTF-8") << "Syukuzitu" << QByteArrayList{"\xff\xfe", "1", "2"}
                               << QByteArray("Syukuzitu\t\xff\xfe\t1\t2");
    QTest::newRow("no name") << "Syukuzitu" << QByteArrayList{"", "1", "2"}
                             << QByteArray("Syukuzitu\t\t1\t2");
    QTest::newRow("mark") << "Usuallyday" << QByteArrayList{"2026-11-23"}
                          << QByteArray("Usuallyday\t2026-11-23");
}

void TstDayRow::ARowIsItsTableAndItsValues() {
    QFETCH(const QString, table);
    QFETCH(const QByteArrayList, values);
    QFETCH(const QByteArray, text);
    const DayRow row{store::FindTable(table), {values.begin(), values.end()}};
    QCOMPARE(EncodeRow(row), text);
    const auto read = DecodeRow(text);
    QVERIFY(read);
    QCOMPARE(read->table, row.table);
    QCOMPARE(read->values, row.values);
}

void TstDayRow::SomeRowsStayOnTheirComputer_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArrayList>("values");
    QTest::newRow("beyond 32 bits") << "Kinenbi" << QByteArrayList{"a", "2147483648", "1", "1", "0"};
    QTest::newRow("no date") << "Holiday" << QByteArrayList{"2026-02-30"};
    QTest::newRow("another form of a date") << "Holiday" << QByteArrayList{"2026-2-3"};
    QTest::newRow("too long") << "Kinenbi"
                              << QByteArrayList{QByteArray(kLongestRow, 'a'), "0", "1", "1", "0"};
}

void TstDayRow::SomeRowsStayOnTheirComputer() {
    QFETCH(const QString, table);
    QFETCH(const QByteArrayList, values);
    QVERIFY(!EncodeRow({store::FindTable(table), {values.begin(), values.end()}}));
}

void TstDayRow::OtherTextsAreNoRows_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("another table") << QByteArray("Other\ta");
    QTest::newRow("another case") << QByteArray("holiday\t2026-01-01");
    QTest::newRow("a value too few") << QByteArray("Kinenbi\ta\t0\t1\t1");
    QTest::newRow("a value too many") << QByteArray("Holiday\t2026-01-01\t1");
    QTest::newRow("only the table") << QByteArray("Holiday");
    QTest::newRow("unknown escape") << QByteArray("Syukuzitu\ta\\x\t1\t2");
    QTest::newRow("half an escape") << QByteArray("Syukuzitu\ta\\\t1\t2");
    QTest::newRow("plain end of line") << QByteArray("Syukuzitu\ta\rb\t1\t2");
    QTest::newRow("number with zeros") << QByteArray("Syukuzitu\ta\t01\t2");
    QTest::newRow("number with a sign") << QByteArray("Syukuzitu\ta\t+1\t2");
    QTest::newRow("no number") << QByteArray("Syukuzitu\ta\t\t2");
    QTest::newRow("too long") << QByteArray("Syukuzitu\t" + QByteArray(kLongestRow, 'a') + "\t1\t2");
}

void TstDayRow::OtherTextsAreNoRows() {
    QFETCH(const QByteArray, text);
    QVERIFY(!DecodeRow(text));
}

QTEST_APPLESS_MAIN(TstDayRow)
#include "tst_day_row.moc"
