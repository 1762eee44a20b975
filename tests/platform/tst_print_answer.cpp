// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/print/print_answer.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// The output of tickwell-print as shown to the user.
class TstPrintAnswer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FailuresHaveASentence_data();
    void FailuresHaveASentence();
    void OnlyAMissingPrinterIsNoPrinter();
    void AcceptedIsNoFailure();
    void UnexpectedLinesAreFailures_data();
    void UnexpectedLinesAreFailures();
    void ALongReasonIsCut();
};

void TstPrintAnswer::FailuresHaveASentence_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no service") << "no-service\t\tNo such file or directory"_ba
                                << u"印刷サービス（CUPS）に接続できません。\r\nサービスが動いているか確かめて"
                                   u"から、もう一度印刷してください。"
                                   u"\r\n理由：No such file or directory"_s;
    QTest::newRow("no printer") << "no-printer\t\tNo default destination."_ba
                                << u"通常使うプリンターが設定されていません。"_s;
    QTest::newRow("not painted") << "not-painted\t\t"_ba << u"印刷するページを作れませんでした。"_s;
    QTest::newRow("rejecting") << "rejecting\tLaser\t紙切れ"_ba
                               << u"プリンター「Laser」は印刷を受け付けていません。\r\n理由：紙切れ"_s;
    QTest::newRow("forbidden") << "forbidden\tLaser\t"_ba
                               << u"プリンター「Laser」の使用が許可されていません。"_s;
    QTest::newRow("refused") << "refused\tLaser\tToo many jobs"_ba
                             << u"プリンター「Laser」に印刷できませんでした。\r\n理由：Too many jobs"_s;
    QTest::newRow("aborted") << "aborted\tLaser\tFilter failed"_ba
                             << u"プリンター「Laser」が印刷を中止しました。\r\n理由：Filter failed"_s;
    QTest::newRow("not written") << "not-written\t\tNo space left on device"_ba
                                 << u"PDFを保存できませんでした。\r\n書き込めるフォルダーと、空き容量を"
                                    u"確かめてください。\r\n理由：No space left on device"_s;
    QTest::newRow("a mark in a name is no mark")
        << "refused\t%1\t%1"_ba << u"プリンター「%1」に印刷できませんでした。\r\n理由：%1"_s;
}

void TstPrintAnswer::FailuresHaveASentence() {
    QFETCH(QByteArray, line);
    QFETCH(QString, reason);
    const PrintNews news = NewsFrom(line);
    QCOMPARE(news.stage, PrintStage::Failed);
    QCOMPARE(news.reason, reason);
}

void TstPrintAnswer::OnlyAMissingPrinterIsNoPrinter() {
    for (const QByteArray word : {"no-service", "no-printer"}) {
        QVERIFY(NewsFrom(word + "\t\t").noPrinter);
    }
    for (const QByteArray word :
         {"accepted", "not-painted", "rejecting", "forbidden", "refused", "aborted", "not-written"}) {
        QVERIFY(!NewsFrom(word + "\tLaser\t").noPrinter);
    }
}

void TstPrintAnswer::AcceptedIsNoFailure() {
    QCOMPARE(NewsFrom("accepted\tLaser\t"_ba), (PrintNews{PrintStage::Accepted, {}}));
}

void TstPrintAnswer::UnexpectedLinesAreFailures_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("empty") << ""_ba;
    QTest::newRow("only the word") << "accepted"_ba;
    QTest::newRow("two fields") << "aborted\tLaser"_ba;
    QTest::newRow("four fields") << "accepted\tLaser\t\t"_ba;
    QTest::newRow("unknown word") << "printed\tLaser\t"_ba;
}

void TstPrintAnswer::UnexpectedLinesAreFailures() {
    QFETCH(QByteArray, line);
    const QByteArray warning = "tickwell-print wrote an unknown answer: " + line;
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QCOMPARE(NewsFrom(line), (PrintNews{PrintStage::Failed,
                                        u"印刷プログラムが途中で終了したため、印刷できませんでした。"_s}));
}

void TstPrintAnswer::ALongReasonIsCut() {
    const QString reason = NewsFrom("refused\tLaser\t" + QByteArray(100'000, 'x')).reason;
    QVERIFY(reason.contains(u"xxx"));
    QVERIFY(reason.size() < 500);
}

QTEST_GUILESS_MAIN(TstPrintAnswer)
#include "tst_print_answer.moc"
