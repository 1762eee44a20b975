// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/file_export.h"

#include <QTest>

#include "exchange/file_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

/// Writing files of anniversaries.
class TstFileExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ExportsWriteWhatIsChosen();
    void RowsOnNoDayAreCounted();
    void AFailingExportLeavesTheOldFile();
    void ACancelledExportLeavesTheOldFile();
    void RowsThatChangeWhileWritingAreReadAgain();
};

void TstFileExport::ExportsWriteWhatIsChosen() {
    Bench bench;
    bench.database.Execute(days::InsertText({u"誕生日"_s, 0, 6, 10, 0}));
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('2026-03-04')");
    bench.store.Raw("INSERT INTO Halfday(Date) VALUES ('2026-03-05')");
    bench.store.Raw("INSERT INTO Usuallyday(Date) VALUES ('2026-02-30')");
    const ExportChoice all{.asTable = true,
                           .anniversaries = true,
                           .daysOff = true,
                           .firstYear = 2026,
                           .lastYear = 2027,
                           .marks = true};
    const ExportSums sums = bench.Export(all, u"a.csv"_s);
    QCOMPARE(sums.anniversaries, 1);
    QCOMPARE(sums.daysOff, 24);
    QCOMPARE(sums.marks, 2);
    QCOMPARE(ExportText(sums), u"記念日 1件、祝日 24件、印 2件を書き出しました。"_s);
    const QByteArray file = ReadAll(bench.PathOf(u"a.csv"_s));
    QVERIFY(file.startsWith("\xEF\xBB\xBF"));
    const QString table = QString::fromUtf8(file);
    QVERIFY(table.startsWith(
        u"記念日,年,月,日,第何週,曜日\r\n誕生日,,6,10,,\r\n朔日,2026,1,1,,\r\n朔日,2026,2,1,,\r\n"));
    QVERIFY(table.endsWith(u"朔日,2027,12,1,,\r\n休日,2026,3,4,,\r\n半日,2026,3,5,,\r\n"));
    QVERIFY(!table.contains(u'元') && !table.contains(u"不明"));

    ExportChoice marks;
    marks.anniversaries = false;
    marks.marks = true;
    bench.Export(marks, u"a.ics"_s);
    const QByteArray calendar = ReadAll(bench.PathOf(u"a.ics"_s));
    QCOMPARE(calendar.count("BEGIN:VEVENT"), 2);
    QVERIFY(calendar.contains("DTSTART;VALUE=DATE:20260304\r\nSUMMARY:休日\r\n"));
}

void TstFileExport::RowsOnNoDayAreCounted() {
    Bench bench;
    bench.database.Execute(days::InsertText({u"a"_s, 0, 2, 30, 0}));
    bench.database.Execute(days::InsertText({u"b"_s, 0, 2, 28, 0}));
    for (const bool asTable : {false, true}) {
        ExportChoice choice;
        choice.asTable = asTable;
        const ExportSums sums = bench.Export(choice, u"a"_s);
        QCOMPARE(sums.anniversaries, 1);
        QCOMPARE(sums.onNoDay, 1);
        QVERIFY(ExportText(sums).endsWith(u"\r\nどの日にも当たらない記念日 1件は書き出していません。"));
    }
}

void TstFileExport::AFailingExportLeavesTheOldFile() {
    Bench bench;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Export({}, u"missing/a.ics"_s));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Export({}, u""_s));
    QVERIFY(QFileInfo(bench.store.Folder()).isDir());
}

void TstFileExport::ACancelledExportLeavesTheOldFile() {
    Bench bench;
    RowImport import(bench.database, Many(3000));
    DoWhole(import);
    WriteAll(bench.PathOf(u"a.ics"_s), "old"_ba);
    const QStringList before = QDir(bench.store.Folder()).entryList();
    FileExport work({.dayDatabase = bench.database, .holidays = nullptr, .now = QDateTime::currentDateTime()},
                    {}, bench.PathOf(u"a.ics"_s));
    for (int slice = 0; slice < 4; ++slice) {
        QVERIFY(!work.Step());
    }
    QVERIFY(work.Part() > 0 && work.Part() < 1);
    work.GiveUp();
    QVERIFY(work.Step());
    QVERIFY(work.IsGivenUp());
    QCOMPARE(ReadAll(bench.PathOf(u"a.ics"_s)), "old"_ba);
    QCOMPARE(QDir(bench.store.Folder()).entryList(), before);
}

void TstFileExport::RowsThatChangeWhileWritingAreReadAgain() {
    Bench bench;
    RowImport import(bench.database, Many(1200));
    DoWhole(import);
    FileExport work({.dayDatabase = bench.database, .holidays = nullptr, .now = QDateTime::currentDateTime()},
                    {.asTable = true}, bench.PathOf(u"a.csv"_s));
    for (int slice = 0; slice < 3; ++slice) {
        QVERIFY(!work.Step());
    }
    bench.store.Raw("UPDATE Kinenbi SET Name = 'neu' WHERE Name IN ('n3', 'n1100')");
    DoWhole(work);
    QCOMPARE(work.Sums().anniversaries, 1200);
    const QByteArray table = ReadAll(bench.PathOf(u"a.csv"_s));
    QCOMPARE(table.count("neu,"), 2);
    QCOMPARE(table.count('\n'), 1201);
}

QTEST_GUILESS_MAIN(TstFileExport)
#include "tst_file_export.moc"
