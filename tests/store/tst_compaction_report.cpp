// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QTest>
#include <limits>

#include "store/compaction_report.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr qint32 kLargest = std::numeric_limits<qint32>::max();

}  // namespace

/// The report of a compaction.
class TstCompactionReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Ratio_data();
    void Ratio();
    void HasOneDecimalAtMost();
    void NamesBothSizesAndTheRatio_data();
    void NamesBothSizesAndTheRatio();
    void ReportsAFailure();
};

void TstCompactionReport::Ratio_data() {
    QTest::addColumn<qint32>("before");
    QTest::addColumn<qint32>("after");
    QTest::addColumn<QString>("ratio");
    const auto row = [](const char* name, qint32 before, qint32 after, const QString& ratio) {
        QTest::newRow(name) << before << after << ratio;
    };
    row("nothing gained", 40960, 40960, u"0"_s);
    row("shrunk to 62.5 %", 65536, 40960, u"37.5"_s);
    row("a half", 81920, 40960, u"50"_s);
    row("nine tenths empty", 663'552, 57'344, u"91.4"_s);
    row("one page of 24", 98'304, 90'112, u"8.4"_s);
    row("100 less 90.1", 1000, 901, u"9.9"_s);
    row("one in a thousand", 1000, 999, u"0.1"_s);
    row("less than one in a thousand counts as one", 100'000, 99'999, u"0.1"_s);
    row("two thirds left", 3, 2, u"33.4"_s);
    row("one third left", 3, 1, u"66.7"_s);
    row("nearly all", 1024, 1, u"100"_s);
    row("all", 1024, 0, u"100"_s);
    row("grown by one in a thousand, which floating point makes none", 1000, 1001, u"0"_s);
    row("grown by five in a thousand, which floating point makes four", 1000, 1005, u"-0.4"_s);
    row("grown by a 99th", 99, 100, u"-1"_s);
    row("grown by half a hundredth", 40'960, 41'165, u"-0.5"_s);
    row("grown by a tenth", 40'960, 45'056, u"-10"_s);
    row("doubled", 40'960, 81'920, u"-100"_s);
    row("grown to two and an eighth", 8, 17, u"-112.5"_s);
    row("grown beyond the range", 1, kLargest, u"-214748364600"_s);
    row("the largest", kLargest, kLargest, u"0"_s);
    row("from the largest", kLargest, 1, u"100"_s);
}

void TstCompactionReport::Ratio() {
    QFETCH(qint32, before);
    QFETCH(qint32, after);
    QTEST(CompactionRatio(before, after), "ratio");
}

void TstCompactionReport::HasOneDecimalAtMost() {
    const QRegularExpression form(u"^-?[0-9]+(\\.[1-9])?$"_s);
    for (qint32 after = 1; after <= 25'000; ++after) {
        const QString ratio = CompactionRatio(10'000, after);
        QVERIFY2(form.match(ratio).hasMatch() && ratio != "-0"_L1, qPrintable(ratio));
    }
}

void TstCompactionReport::NamesBothSizesAndTheRatio_data() {
    QTest::addColumn<qint32>("before");
    QTest::addColumn<qint32>("after");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, qint32 before, qint32 after, const char* sizes) {
        QTest::newRow(name) << before << after
                            << "データベースの最適化が終了しました。\r\n\r\n     最適前：" +
                                   QByteArray(sizes);
    };
    row("smaller", 663'552, 57'344, "648KB\r\n     最適後：56KB\r\n     圧縮率：91.4%");
    row("kilobytes are truncated", 2047, 1025, "1KB\r\n     最適後：1KB\r\n     圧縮率：50%");
    row("below one kilobyte", 1023, 512, "0KB\r\n     最適後：0KB\r\n     圧縮率：50%");
    row("nothing gained", 40'960, 40'960, "40KB\r\n     最適後：40KB\r\n     圧縮率：0%");
    row("grown", 40'960, 45'056, "40KB\r\n     最適後：44KB\r\n     圧縮率：-10%");
}

void TstCompactionReport::NamesBothSizesAndTheRatio() {
    QFETCH(qint32, before);
    QFETCH(qint32, after);
    QFETCH(QByteArray, text);
    const Message message = CompactionDone(before, after);
    QCOMPARE(message.icon, MessageIcon::Information);
    QCOMPARE(message.title, u"データベースの最適化"_s);
    QCOMPARE(message.text.toUtf8(), text);
}

void TstCompactionReport::ReportsAFailure() {
    QCOMPARE(CompactionFailed(), (Message{MessageIcon::Exclamation, u"データベースの最適化"_s,
                                          u"データベースの最適化に失敗しました。"_s}));
}

QTEST_GUILESS_MAIN(TstCompactionReport)
#include "tst_compaction_report.moc"
