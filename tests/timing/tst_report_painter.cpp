// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "display/line_look.h"
#include "support/fake_printer.h"
#include "timing/report_painter.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

QStringList Numbered(int count) {
    QStringList lines;
    for (int number = 1; number <= count; ++number) {
        lines.append(u"ラップ"_s + QString::number(number));
    }
    return lines;
}

void PrintOn(FakePrinter& printer, const QStringList& lines) {
    const ReportPainter report(lines);
    printer.Print({u"ストップウォッチ"_s, [&report](QPainter& painter, const QRectF& area, int number) {
                       return report.Paint(painter, area, number);
                   }});
}

/// The words on all pages, in order.
QStringList Printed(const FakePrinter& printer) {
    return printer.Text().split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts);
}

}  // namespace

/// Lines on paper.
class TstReportPainter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EveryLineIsPrintedInOrder_data();
    void EveryLineIsPrintedInOrder();
    void EmptyLinesTakeTheirRoom();
    void TheJapaneseFontIsEmbedded();
    void APageWithoutRoomTakesOneLine();
    void AllLinesLieInsideTheArea();
};

void TstReportPainter::initTestCase() {
    InstallFontSubstitutes();
}

void TstReportPainter::EveryLineIsPrintedInOrder_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QPageSize::PageSizeId>("size");
    QTest::newRow("one line") << 1 << QPageSize::A4;
    QTest::newRow("a page") << 40 << QPageSize::A4;
    QTest::newRow("many pages") << 1000 << QPageSize::A4;
    QTest::newRow("small paper") << 200 << QPageSize::A6;
}

void TstReportPainter::EveryLineIsPrintedInOrder() {
    QFETCH(int, count);
    QFETCH(QPageSize::PageSizeId, size);
    FakePrinter printer;
    printer.pageSize = QPageSize(size);
    const QStringList lines = Numbered(count);
    PrintOn(printer, lines);
    QCOMPARE(Printed(printer), lines);
    QCOMPARE(printer.Text().count(u'\f'), printer.pages);
    QCOMPARE(printer.pages > 1, count > 100);
}

void TstReportPainter::EmptyLinesTakeTheirRoom() {
    FakePrinter printer;
    PrintOn(printer, {u"上"_s, QString(), QString(), u"下"_s});
    QCOMPARE(printer.Text().section(u'上', 1).section(u'下', 0, 0).count(u'\n'), 3);
}

void TstReportPainter::TheJapaneseFontIsEmbedded() {
    FakePrinter printer;
    PrintOn(printer, Numbered(3));
    const QStringList table = printer.Fonts().split(u'\n', Qt::SkipEmptyParts).mid(2);
    QVERIFY(!table.isEmpty());
    for (const QString& font : table) {
        QVERIFY2(
            font.contains(QRegularExpression(u"\\s(yes)\\s+(yes|no)\\s+(yes|no)\\s+\\d+\\s+\\d+\\s*$"_s)),
            qPrintable(font));
    }
}

void TstReportPainter::APageWithoutRoomTakesOneLine() {
    const ReportPainter report(Numbered(3));
    QImage paper(100, 4, QImage::Format_RGB32);
    QPainter painter(&paper);
    QVERIFY(report.Paint(painter, QRectF(0, 0, 100, 4), 0));
    QVERIFY(report.Paint(painter, QRectF(0, 0, 100, 4), 1));
    QVERIFY(!report.Paint(painter, QRectF(0, 0, 100, 4), 2));
}

void TstReportPainter::AllLinesLieInsideTheArea() {
    const ReportPainter report(QStringList(100, u"あいう"_s));
    QImage paper(300, 300, QImage::Format_RGB32);
    paper.fill(Qt::white);
    const QRect area(40, 40, 220, 220);
    {
        QPainter painter(&paper);
        QVERIFY(report.Paint(painter, area, 0));
    }
    QRect inked;
    for (int y = 0; y < paper.height(); ++y) {
        for (int x = 0; x < paper.width(); ++x) {
            if (paper.pixelColor(x, y) != QColor(Qt::white)) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(area.contains(inked));
    QVERIFY(inked.height() > area.height() / 2);
}

QTEST_MAIN(TstReportPainter)
#include "tst_report_painter.moc"
