// SPDX-License-Identifier: GPL-3.0-or-later
#include <QImage>
#include <QTest>

#include "print_helper/report_painter.h"

using namespace tickwell;
using namespace tickwell::print_helper;
using namespace Qt::StringLiterals;

namespace {

constexpr int kDotsPerMetre = 7874;  // 200 dpi, so that 10 points are not 10 pixels

QImage Sheet() {
    QImage sheet(600, 600, QImage::Format_RGB32);
    sheet.setDotsPerMeterX(kDotsPerMetre);
    sheet.setDotsPerMeterY(kDotsPerMetre);
    sheet.fill(Qt::white);
    return sheet;
}

QFont TheFont() {
    QFont font;
    font.setFamilies({u"ＭＳ Ｐゴシック"_s, u"Monapo"_s, u"Ume P Gothic"_s, u"IPAPGothic"_s, u"IPAexGothic"_s,
                      u"TakaoPGothic"_s, u"VL PGothic"_s, u"Noto Sans CJK JP"_s});
    font.setPointSize(10);
    return font;
}

QRect Inked(const QImage& sheet) {
    QRect inked;
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x) {
            if (sheet.pixelColor(x, y) != QColor(Qt::white)) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    return inked;
}

}  // namespace

/// Painting lines on a sheet.
class TstReportPainter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItPaintsInTheGothicFontOfTenPoints();
    void APageWithoutRoomTakesOneLine();
    void AllLinesAreInsideTheArea();
    void TheSecondColumnIsRightOfTheLongestText();
    void EachPageHasItsOwnSecondColumn();
};

void TstReportPainter::ItPaintsInTheGothicFontOfTenPoints() {
    const QFont font = TheFont();
    QImage expected = Sheet();
    {
        QPainter painter(&expected);
        painter.setFont(font);
        const QFontMetricsF metrics(font, &expected);
        painter.drawText(QPointF(30, 40 + metrics.ascent()), u"ラップ"_s);
        painter.drawText(QPointF(30, 40 + metrics.ascent() + metrics.lineSpacing()), u"Lapse1"_s);
    }
    QVERIFY(!Inked(expected).isEmpty());
    QImage sheet = Sheet();
    {
        QPainter painter(&sheet);
        QVERIFY(!ReportPainter({u"ラップ"_s, u"Lapse1"_s}).Paint(painter, QRectF(30, 40, 500, 500), 0));
    }
    QCOMPARE(sheet, expected);
}

void TstReportPainter::APageWithoutRoomTakesOneLine() {
    const ReportPainter report({u"1"_s, u"2"_s, u"3"_s});
    QImage sheet = Sheet();
    QPainter painter(&sheet);
    QVERIFY(report.Paint(painter, QRectF(0, 0, 100, 4), 0));
    QVERIFY(report.Paint(painter, QRectF(0, 0, 100, 4), 1));
    QVERIFY(!report.Paint(painter, QRectF(0, 0, 100, 4), 2));
}

void TstReportPainter::AllLinesAreInsideTheArea() {
    const ReportPainter report(QStringList(100, u"あいう"_s));
    QImage sheet = Sheet();
    const QRect area(40, 40, 500, 400);
    {
        QPainter painter(&sheet);
        QVERIFY(report.Paint(painter, area, 0));
    }
    const QRect inked = Inked(sheet);
    QVERIFY(area.contains(inked));
    QVERIFY(inked.height() > area.height() / 2);
}

void TstReportPainter::TheSecondColumnIsRightOfTheLongestText() {
    const QString shorter = u"Lapse9  0:03'10\"500"_s;
    const QString longer = u"Lapse10  10:03'10\"500"_s;
    const QString interval = u"(+0:00'01\"000)"_s;
    const QRectF area(30, 40, 500, 500);
    QImage expected = Sheet();
    {
        QPainter painter(&expected);
        painter.setFont(TheFont());
        const QFontMetricsF metrics(TheFont(), &expected);
        const double second = 30 + metrics.horizontalAdvance(longer) + metrics.horizontalAdvance(u"  "_s);
        double baseline = 40 + metrics.ascent();
        for (const QString& first : {shorter, longer}) {
            painter.drawText(QPointF(30, baseline), first);
            painter.drawText(QPointF(second, baseline), interval);
            baseline += metrics.lineSpacing();
        }
        painter.drawText(QPointF(30, baseline), u"a longer line without a second column"_s);
    }
    QImage sheet = Sheet();
    {
        QPainter painter(&sheet);
        const ReportPainter report({shorter + u'\t' + interval, longer + u'\t' + interval,
                                    u"a longer line without a second column"_s});
        QVERIFY(!report.Paint(painter, area, 0));
    }
    QCOMPARE(sheet, expected);
}

void TstReportPainter::EachPageHasItsOwnSecondColumn() {
    const QRectF onePerPage(30, 40, 500, 4);
    const ReportPainter report({u"1\t2"_s, u"a longer line\t2"_s, u"1\t2"_s});
    QList<QImage> pages(3, Sheet());
    for (int number = 0; number < 3; ++number) {
        QPainter painter(&pages[number]);
        report.Paint(painter, onePerPage, number);
    }
    QCOMPARE(pages[2], pages[0]);
    QVERIFY(Inked(pages[1]).right() > Inked(pages[0]).right());
}

QTEST_MAIN(TstReportPainter)
#include "tst_report_painter.moc"
