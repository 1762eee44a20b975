// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/file_bench.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

namespace {

QStringList States(const Offer& offer) {
    QStringList states;
    for (const Entry& entry : offer.entries) {
        states.append(entry.row.name + u' ' + StateText(entry));
    }
    return states;
}

QByteArray EventLine(const QByteArray& name, const QByteArray& start, const QByteArray& rule,
                     const QByteArray& occurrences = {}) {
    return "event\t2\tn\t" + name + "\t\t" + start + "\t1\t" + rule + "\t\t\t\t\t" + occurrences + '\n';
}

}  // namespace

/// Reading, storing and writing files of anniversaries.
class TstFileWorks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RowsThatAreStoredAreFound();
    void EveryValueCounts();
    void ACalendarIsReadThroughTheHelper();
    void RefusedEventsAreSplitOnRequest();
    void OccurrencesThatAreReplacedOrCancelledCount_data();
    void OccurrencesThatAreReplacedOrCancelledCount();
    void AFailingHelperIsReported_data();
    void AFailingHelperIsReported();
    void FilesThatCannotBeReadAreNamed();
    void ACancelledReadingEndsTheHelper();
    void ImportsStoreAll_data();
    void ImportsStoreAll();
    void AnyNameIsStoredExactly();
    void ACancelledImportLeavesNothing();
    void AnAbandonedImportLeavesNothing();
    void AFailingImportLeavesNothing();
};

void TstFileWorks::RowsThatAreStoredAreFound() {
    Bench bench;
    bench.database.Execute(days::InsertText({u"前から"_s, 0, 6, 10, 0}));
    WriteAll(bench.PathOf(u"a.csv"_s), "前から,,6,10,,\n新,,6,10,,\n新,,6,10,,\n悪,,13,1,,\n"_ba);
    const Offer offer = bench.Read(u"a.csv"_s);
    QCOMPARE(States(offer), (QStringList{u"前から すでにあります"_s, u"新 新しい"_s, u"新 すでにあります"_s,
                                         u"悪 取り込めません：月が正しくない行"_s}));
    QCOMPARE(SumsText(offer), u"新しい 1件、すでにあります 2件、取り込めません 1件"_s);
}

void TstFileWorks::EveryValueCounts() {
    Bench bench;
    bench.database.Execute(days::InsertText({u"a"_s, 2026, 6, 10, 0}));
    bench.database.Execute(days::InsertText({u"w"_s, 0, 6, 0, 22}));
    WriteAll(bench.PathOf(u"a.csv"_s),
             "b,2026,6,10,,\na,2027,6,10,,\na,2026,7,10,,\na,2026,6,11,,\nw,,6,,2,火\nw,,6,,2,月\n"_ba);
    QCOMPARE(States(bench.Read(u"a.csv"_s)),
             (QStringList{u"b 新しい"_s, u"a 新しい"_s, u"a 新しい"_s, u"a 新しい"_s, u"w 新しい"_s,
                          u"w すでにあります"_s}));
}

void TstFileWorks::ACalendarIsReadThroughTheHelper() {
    Bench bench;
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    const QByteArray line = EventLine("a", "20260610", "YEARLY;1;0;;;;;;");
    bench.helper.output = {
        line.first(7), line.sliced(7) + "at\t1\n" + EventLine("b", "20260611", ""),
        EventLine("c", "20260611", "DAILY;1;0;;;;;;").replace("\tn\t", "\tnc\t") + "other\t3\n"};
    const Offer offer = bench.Read(u"a.ics"_s);
    QCOMPARE(bench.helper.file, bench.PathOf(u"a.ics"_s));
    QCOMPARE(bench.helper.events, QList<int>());
    QCOMPARE(States(offer), (QStringList{u"a 新しい"_s, u"b 新しい"_s}));
    QCOMPARE(
        SumsText(offer),
        u"新しい 2件、すでにあります 0件、取り込めません 0件、取り消された予定 1件、日付のないもの 3件"_s);
}

void TstFileWorks::RefusedEventsAreSplitOnRequest() {
    Bench bench;
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    bench.helper.output = {EventLine("a", "20260610", "") + EventLine("b", "20260611", "DAILY;1;0;;;;;;") +
                           "other\t0\n"};
    const Offer refused = bench.Read(u"a.ics"_s);
    QCOMPARE(States(refused), (QStringList{u"a 新しい"_s, u"b 取り込めません：毎日の予定"_s}));
    QCOMPARE(WhenOf(refused.entries.at(1)), u"2026年6月11日"_s);
    QCOMPARE(refused.refusedEvents, QList<int>{1});
    bench.helper.output = {EventLine("a", "20260610", "") +
                           EventLine("b", "20260611", "DAILY;1;0;;;;;;", "20261124,20261125") + "other\t0\n"};
    QCOMPARE(States(bench.Read(u"a.ics"_s, {1})), (QStringList{u"a 新しい"_s, u"b 新しい"_s, u"b 新しい"_s}));
    QCOMPARE(bench.helper.events, QList<int>{1});
    QCOMPARE(bench.helper.first, QDate(2026, 11, 23));
    QCOMPARE(bench.helper.end, QDate(2027, 11, 23));
}

void TstFileWorks::OccurrencesThatAreReplacedOrCancelledCount_data() {
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<bool>("isExact");
    const auto row = [](const char* name, const QByteArray& flags, const QByteArray& uid,
                        const QByteArray& start, const QByteArray& replaced, bool isExact) {
        QTest::newRow(name) << "event\t9\t" + flags + "\tx\t" + uid + '\t' + start + "\t1\t\t\t\t" +
                                   replaced + "\t\t\n"
                            << isExact;
    };
    row("moved", "n", "u", "20270611", "20270610", false);
    row("moved in the past", "n", "u", "20260611", "20260610", true);
    row("on its day", "n", "u", "20270610", "20270610", true);
    row("cancelled", "nc", "u", "20270610", "20270610", false);
    row("of another series", "n", "v", "20270611", "20270610", true);
    row("no replacement", "n", "u", "20270611", "", true);
}

void TstFileWorks::OccurrencesThatAreReplacedOrCancelledCount() {
    QFETCH(QByteArray, other);
    QFETCH(bool, isExact);
    Bench bench;
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    bench.helper.output = {"event\t2\tn\ta\tu\t20260610\t1\tYEARLY;1;0;;;;;;\t\t\t\t\t\n" + other +
                           "other\t0\n"};
    const Offer offer = bench.Read(u"a.ics"_s);
    QCOMPARE(StateText(offer.entries.front()),
             isExact ? u"新しい"_s : u"取り込めません：一回だけ変えた日のある予定"_s);
}

void TstFileWorks::AFailingHelperIsReported_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("reason");
    const QString died = u"iCalendarを読むプログラムが途中で終了しました。"_s;
    const QByteArray event = EventLine("a", "20260610", "");
    QTest::newRow("crashed") << event + "other\t0\n" << -1 << died;
    QTest::newRow("ended early") << event << 0 << died;
    QTest::newRow("half a line") << event + "other\t0\nev" << 0 << died;
    QTest::newRow("garbage") << "hello\n"_ba << 0 << died;
    QTest::newRow("an endless line") << QByteArray(9'000'000, 'x') << 0 << died;
    QTest::newRow("an unknown refusal") << "refused\tmood\t3\n"_ba << 2 << died;
    QTest::newRow("a bad event") << EventLine("a", "20260631", "") + "other\t0\n" << 0 << died;
    QTest::newRow("a long line") << "refused\ttoo-long\t7\n"_ba << 2
                                 << u"7行目が長すぎます（64 KiBまで）。"_s;
    QTest::newRow("a large file") << "refused\ttoo-large\t0\n"_ba << 2
                                  << u"ファイルが大きすぎます（40 MiBまで）。分けて保存してください。"_s;
}

void TstFileWorks::AFailingHelperIsReported() {
    QFETCH(QByteArray, output);
    QFETCH(int, code);
    QFETCH(QString, reason);
    Bench bench;
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    bench.helper.output = {output};
    bench.helper.code = code;
    QCOMPARE(bench.ReasonFor(u"a.ics"_s),
             u"記念日を読み込めません。\r\n"_s + bench.PathOf(u"a.ics"_s) + u"\r\n" + reason);
}

void TstFileWorks::FilesThatCannotBeReadAreNamed() {
    Bench bench;
    WriteAll(bench.PathOf(u"a.txt"_s), "x"_ba);
    QVERIFY(
        bench.ReasonFor(u"a.txt"_s).endsWith(u"名前が .ics、.vcf、.csv で終わるファイルを選んでください。"));
    QVERIFY(bench.ReasonFor(u"none.ics"_s).endsWith(u"ファイルがありません。"));
    QVERIFY(bench.ReasonFor(u"none.csv"_s).startsWith(u"記念日を読み込めません。\r\n"));
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    bench.helper.starts = false;
    QVERIFY(bench.ReasonFor(u"a.ics"_s).contains(u"tickwell-ical"));
}

void TstFileWorks::ACancelledReadingEndsTheHelper() {
    Bench bench;
    WriteAll(bench.PathOf(u"a.ics"_s), "x"_ba);
    bench.helper.hangs = true;
    {
        FileReading reading(
            {.dayDatabase = bench.database, .helper = bench.helper, .today = QDate(2026, 11, 23)},
            bench.PathOf(u"a.ics"_s));
        QVERIFY(!reading.Step());
        QVERIFY(!reading.Step());
        reading.GiveUp();
        QVERIFY(reading.Step());
        QVERIFY(reading.IsGivenUp());
    }
    QCOMPARE(bench.helper.ended, 1);
}

void TstFileWorks::ImportsStoreAll_data() {
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 500, 501, 3000}) {
        QTest::addRow("%d", count) << count;
    }
}

void TstFileWorks::ImportsStoreAll() {
    QFETCH(int, count);
    Bench bench;
    RowImport work(bench.database, Many(count));
    DoWhole(work);
    QVERIFY(!work.IsGivenUp());
    QVERIFY(bench.database.IsOpen());
    const QStringList stored = bench.Stored();
    QCOMPARE(stored.size(), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(stored.at(i), u"n%1|0|%2|%3|0"_s.arg(i).arg(1 + i % 12).arg(1 + i % 28));
    }
}

void TstFileWorks::AnyNameIsStoredExactly() {
    Bench bench;
    const QStringList names{u"say \"hi\""_s, u"'; DROP TABLE Kinenbi; --"_s,  u"#1/1/2026#"_s, u""_s,
                            u"　"_s,         QString::fromUcs4(U"\U0001F31F")};
    std::vector<days::Anniversary> rows;
    for (const QString& name : names) {
        rows.push_back({name, 0, 6, 10, 0});
    }
    RowImport work(bench.database, rows);
    DoWhole(work);
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi ORDER BY id"), names);
    const auto found =
        days::AnniversariesIn(bench.database.RunQuery(u"SELECT * FROM Kinenbi WHERE Month=6 AND Day=10"_s));
    QCOMPARE(found, rows);
}

void TstFileWorks::ACancelledImportLeavesNothing() {
    Bench bench;
    RowImport work(bench.database, Many(200'000));
    QVERIFY(!work.Step());
    QVERIFY(!bench.database.IsOpen());
    work.GiveUp();
    DoWhole(work);
    QVERIFY(work.IsGivenUp());
    QVERIFY(bench.database.IsOpen());
    QCOMPARE(bench.Stored(), QStringList());
    bench.database.Execute(days::InsertText({u"後"_s, 0, 6, 10, 0}));
}

void TstFileWorks::AnAbandonedImportLeavesNothing() {
    Bench bench;
    {
        RowImport work(bench.database, Many(200'000));
        QVERIFY(!work.Step());
    }
    QVERIFY(bench.database.IsOpen());
    QCOMPARE(bench.Stored(), QStringList());
}

void TstFileWorks::AFailingImportLeavesNothing() {
    Bench bench;
    bench.store.Raw("CREATE UNIQUE INDEX once ON Kinenbi(Name)");
    std::vector<days::Anniversary> rows = Many(1000);
    for (const std::size_t count : {std::size_t{1000}, std::size_t{300}}) {
        rows.resize(count);
        rows.back().name = rows.front().name;
        RowImport work(bench.database, rows);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, DoWhole(work));
        QVERIFY(bench.database.IsOpen());
        QCOMPARE(bench.Stored(), QStringList());
    }
}

QTEST_GUILESS_MAIN(TstFileWorks)
#include "tst_file_works.moc"
