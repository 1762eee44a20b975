// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "support/fake_message_boxes.h"
#include "support/fake_printer.h"
#include "timing/report_printing.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

const PrintNews kDelayed{PrintStage::Delayed, {}};
const PrintNews kAccepted{PrintStage::Accepted, {}};

PrintNews Failed(const QString& reason) {
    return {PrintStage::Failed, reason};
}

struct Bench {
    Bench() { printer.accepts = false; }

    void Print() {
        printing->Print({u"題"_s, {u"行"_s}}, [this] { ++free; });
    }

    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakePrinter printer;
    QObject window;
    QList<PrintJob> kept;
    std::unique_ptr<ReportPrinting> printing = std::make_unique<ReportPrinting>(
        printer, boxes, handlers, &window, [this](const PrintJob& job) { kept.append(job); });
    int free = 0;
};

}  // namespace

/// A print from its start to the message for the user.
class TstReportPrinting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAcceptedPrintShowsNothing();
    void ADelayShowsABoxUntilTheAnswer_data();
    void ADelayShowsABoxUntilTheAnswer();
    void CancelEndsThePrint();
    void AFailureAfterAcceptanceIsReported();
    void NoFailureHidesAnother();
    void WithoutAPrinterTheReportCanBeKept_data();
    void WithoutAPrinterTheReportCanBeKept();
    void TheOfferMayBeTakenTooLate();
    void AFileThatTakesLongHasABoxOfItsOwn();
    void AFileThatFailsIsNamed();
    void DestructionCancelsOnlyADelayedPrint_data();
    void DestructionCancelsOnlyADelayedPrint();
};

void TstReportPrinting::AnAcceptedPrintShowsNothing() {
    Bench bench;
    bench.Print();
    QCOMPARE(bench.printer.jobs, (QList<PrintJob>{{u"題"_s, {u"行"_s}}}));
    QCOMPARE(bench.free, 0);
    bench.printer.Tell(kAccepted);
    QCOMPARE(bench.free, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(bench.boxes.Waits().isEmpty());
}

void TstReportPrinting::ADelayShowsABoxUntilTheAnswer_data() {
    QTest::addColumn<PrintNews>("answer");
    QTest::addColumn<QList<Message>>("shown");
    QTest::newRow("accepted") << kAccepted << QList<Message>();
    QTest::newRow("failed") << Failed(u"紙切れ"_s)
                            << QList<Message>{
                                   {MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー\r\n紙切れ"_s}};
}

void TstReportPrinting::ADelayShowsABoxUntilTheAnswer() {
    QFETCH(PrintNews, answer);
    QFETCH(QList<Message>, shown);
    Bench bench;
    bench.Print();
    bench.printer.Tell(kDelayed);
    QCOMPARE(bench.boxes.Waits(),
             (QList<Message>{
                 {MessageIcon::Information, u"印刷"_s,
                  u"印刷サービスの応答を待っています。\r\n「中止」を押すと、印刷しないで終わります。"_s}}));
    QVERIFY(bench.boxes.IsWaiting());
    QCOMPARE(bench.free, 0);
    bench.printer.Tell(answer);
    QVERIFY(!bench.boxes.IsWaiting());
    QCOMPARE(bench.boxes.Shown(), shown);
    QCOMPARE(bench.boxes.Owners(), QList<const QObject*>(1 + shown.size(), &bench.window));
    QCOMPARE(bench.free, 1);
    QCOMPARE(bench.printer.cancelled, 0);
}

void TstReportPrinting::CancelEndsThePrint() {
    Bench bench;
    bench.Print();
    bench.printer.Tell(kDelayed);
    bench.boxes.CancelWait();
    QCOMPARE(bench.printer.cancelled, 1);
    QCOMPARE(bench.free, 1);
    QVERIFY(!bench.boxes.IsWaiting());
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.Print();  // the next print begins without a box
    QCOMPARE(bench.printer.jobs.size(), 2);
    QCOMPARE(bench.boxes.Waits().size(), 1);
}

void TstReportPrinting::AFailureAfterAcceptanceIsReported() {
    Bench bench;
    bench.Print();
    bench.printer.Tell(kAccepted);
    bench.printer.Tell(Failed(u"紙切れ"_s));
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.free, 1);
}

void TstReportPrinting::NoFailureHidesAnother() {
    Bench bench;
    for (const QString& reason : {u"一"_s, u"二"_s}) {
        bench.Print();
        bench.printer.Tell(Failed(reason));
    }
    QCOMPARE(bench.boxes.Shown().size(), 1);
    bench.boxes.Close();
    QCOMPARE(bench.boxes.Shown().size(), 2);
    QVERIFY(bench.boxes.Shown().last().text.endsWith(u"二"));
    QCOMPARE(bench.boxes.Owners(), QList<const QObject*>(2, &bench.window));
}

void TstReportPrinting::DestructionCancelsOnlyADelayedPrint_data() {
    QTest::addColumn<bool>("isDelayed");
    QTest::addColumn<int>("cancelled");
    QTest::newRow("under way") << false << 0;
    QTest::newRow("delayed") << true << 1;
}

void TstReportPrinting::DestructionCancelsOnlyADelayedPrint() {
    QFETCH(bool, isDelayed);
    QFETCH(int, cancelled);
    Bench bench;
    bench.Print();
    if (isDelayed) {
        bench.printer.Tell(kDelayed);
    }
    bench.printing.reset();
    QCOMPARE(bench.printer.cancelled, cancelled);
    QVERIFY(!bench.boxes.IsWaiting());
    bench.printer.Tell(Failed(u"紙切れ"_s));  // too late
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.free, 0);
}

void TstReportPrinting::WithoutAPrinterTheReportCanBeKept_data() {
    QTest::addColumn<bool>("keeps");
    QTest::newRow("kept") << true;
    QTest::newRow("not kept") << false;
}

void TstReportPrinting::WithoutAPrinterTheReportCanBeKept() {
    QFETCH(const bool, keeps);
    Bench bench;
    bench.Print();
    QVERIFY(bench.printing->IsBusy());
    bench.printer.Tell({PrintStage::Failed, u"ありません。"_s, true});
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.boxes.Asked(), (QList<Message>{{MessageIcon::Critical, u"Tickwell"_s,
                                                   u"実行時エラー\r\nありません。"_s, u"PDFに保存..."_s}}));
    QCOMPARE(bench.boxes.Owners(), (QList<const QObject*>{&bench.window}));
    QCOMPARE(bench.free, 1);
    QVERIFY(!bench.printing->IsBusy());
    bench.boxes.Answer(keeps);
    QCOMPARE(bench.kept, keeps ? (QList<PrintJob>{{u"題"_s, {u"行"_s}}}) : QList<PrintJob>());
}

void TstReportPrinting::TheOfferMayBeTakenTooLate() {
    Bench bench;
    bench.Print();
    bench.printer.Tell({PrintStage::Failed, u"ありません。"_s, true});
    bench.printing.reset();
    bench.boxes.Answer(true);
    QVERIFY(bench.kept.isEmpty());
}

void TstReportPrinting::AFileThatTakesLongHasABoxOfItsOwn() {
    Bench bench;
    bench.printing->Print({u"題"_s, {u"行"_s}, u"/tmp/x.pdf"_s}, [&bench] { ++bench.free; });
    bench.printer.Tell(kDelayed);
    QCOMPARE(bench.boxes.Waits().first().text,
             u"PDFを保存しています。\r\n「中止」を押すと、保存しないで終わります。"_s);
    bench.printer.Tell(kAccepted);
    QVERIFY(!bench.boxes.IsWaiting());
    QCOMPARE(bench.free, 1);
}

void TstReportPrinting::AFileThatFailsIsNamed() {
    Bench bench;
    bench.printing->Print({u"題"_s, {u"行"_s}, u"/tmp/x.pdf"_s}, [&bench] { ++bench.free; });
    bench.printer.Tell(Failed(u"満杯です。"_s));
    QCOMPARE(bench.boxes.Shown().first().text, u"実行時エラー\r\n満杯です。\r\n/tmp/x.pdf"_s);
    QCOMPARE(bench.free, 1);
}

QTEST_GUILESS_MAIN(TstReportPrinting)
#include "tst_report_printing.moc"
