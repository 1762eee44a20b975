// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBuffer>
#include <QPaintEngine>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "print_helper/report_document.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::print_helper;
using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"ストップウォッチ"_s;

QStringList Numbered(int count) {
    QStringList lines;
    for (int number = 1; number <= count; ++number) {
        lines.append(u"ラップ"_s + QString::number(number));
    }
    return lines;
}

/// The output of a poppler-utils tool for a document.
QString Said(const QByteArray& document, const QString& tool, const QStringList& options = {}) {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"report.pdf"_s);
    WriteAll(path, document);
    QProcess process;
    process.start(tool, options + (tool == u"pdftotext" ? QStringList{path, u"-"_s} : QStringList{path}));
    return process.waitForFinished(60'000) && process.exitCode() == 0
               ? QString::fromUtf8(process.readAllStandardOutput())
               : QString();
}

QString TextOf(const QByteArray& document) {
    return Said(document, u"pdftotext"_s, {u"-layout"_s});
}

/// Accepts all painting; begin and end succeed or fail as configured.
class Engine : public QPaintEngine {
public:
    Engine(bool begins, bool ends) : QPaintEngine(AllFeatures), m_begins(begins), m_ends(ends) {}
    bool begin(QPaintDevice*) override { return m_begins; }
    bool end() override { return m_ends; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override {}
    void drawPath(const QPainterPath&) override {}
    Type type() const override { return User; }

private:
    bool m_begins;
    bool m_ends;
};

/// A PDF writer with one failing step.
class Pages : public QPdfWriter {
public:
    Pages(QBuffer& buffer, bool begins, bool turns, bool ends)
        : QPdfWriter(&buffer), m_turns(turns), m_engine(begins, ends) {}
    bool newPage() override { return m_turns; }

protected:
    QPaintEngine* paintEngine() const override { return &m_engine; }

private:
    bool m_turns;
    mutable Engine m_engine;
};

}  // namespace

/// The report as a document of pages.
class TstReportDocument : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryLineIsPrintedInOrder_data();
    void EveryLineIsPrintedInOrder();
    void EmptyLinesTakeUpSpace();
    void TheJapaneseFontIsEmbedded();
    void TheMarginsAreAtLeast15Millimetres_data();
    void TheMarginsAreAtLeast15Millimetres();
    void ThePagesHaveTheSizeOfThePaper();
    void AStepThatFailsIsNoticed_data();
    void AStepThatFailsIsNoticed();
};

void TstReportDocument::EveryLineIsPrintedInOrder_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("one line") << 1 << QSizeF(210, 297);
    QTest::newRow("a page") << 40 << QSizeF(210, 297);
    QTest::newRow("many pages") << 1000 << QSizeF(210, 297);
    QTest::newRow("small paper") << 200 << QSizeF(105, 148);
}

void TstReportDocument::EveryLineIsPrintedInOrder() {
    QFETCH(int, count);
    QFETCH(QSizeF, size);
    const QStringList lines = Numbered(count);
    const QString text = TextOf(ReportDocument({size, {}}, kTitle, lines));
    QCOMPARE(text.split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts), lines);
    QCOMPARE(text.count(u'\f') > 1, count > 100);
}

void TstReportDocument::EmptyLinesTakeUpSpace() {
    const QString text = TextOf(ReportDocument({}, kTitle, {u"上"_s, QString(), QString(), u"下"_s}));
    QCOMPARE(text.section(u'上', 1).section(u'下', 0, 0).count(u'\n'), 3);
}

void TstReportDocument::TheJapaneseFontIsEmbedded() {
    const QStringList table =
        Said(ReportDocument({}, kTitle, Numbered(3)), u"pdffonts"_s).split(u'\n', Qt::SkipEmptyParts).mid(2);
    QVERIFY(!table.isEmpty());
    for (const QString& font : table) {
        QVERIFY2(
            font.contains(QRegularExpression(u"\\s(yes)\\s+(yes|no)\\s+(yes|no)\\s+\\d+\\s+\\d+\\s*$"_s)),
            qPrintable(font));
    }
}

void TstReportDocument::TheMarginsAreAtLeast15Millimetres_data() {
    QTest::addColumn<QMarginsF>("printer");
    QTest::addColumn<QMarginsF>("report");
    QTest::newRow("the printer says nothing") << QMarginsF() << QMarginsF(15, 15, 15, 15);
    QTest::newRow("narrower") << QMarginsF(3.5, 3.5, 3.5, 12.7) << QMarginsF(15, 15, 15, 15);
    QTest::newRow("wider at one side") << QMarginsF(6, 6, 6, 20) << QMarginsF(15, 15, 15, 20);
    QTest::newRow("wider") << QMarginsF(25, 16, 17, 18) << QMarginsF(25, 16, 17, 18);
}

void TstReportDocument::TheMarginsAreAtLeast15Millimetres() {
    QFETCH(QMarginsF, printer);
    QFETCH(QMarginsF, report);
    const Paper paper{QSizeF(210, 297), printer};
    QCOMPARE(ReportMargins(paper), report);
    // The positions of the words on the page, in points.
    const QString boxes = Said(ReportDocument(paper, kTitle, Numbered(1000)), u"pdftotext"_s, {u"-bbox"_s});
    double left = 1e9;
    double top = 1e9;
    double bottom = 0;
    static const QRegularExpression word(
        u"<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"[\\d.]+\" yMax=\"([\\d.]+)\""_s);
    for (const QRegularExpressionMatch& match : word.globalMatch(boxes)) {
        left = std::min(left, match.captured(1).toDouble());
        top = std::min(top, match.captured(2).toDouble());
        bottom = std::max(bottom, match.captured(3).toDouble());
    }
    constexpr double kPoint = 25.4 / 72;  // mm
    constexpr double kLine = 6;           // mm, more than the height of a line
    QVERIFY(left * kPoint > report.left() - 0.2 && left * kPoint < report.left() + 1);
    QVERIFY(top * kPoint > report.top() - 0.2 && top * kPoint < report.top() + kLine);
    QVERIFY(bottom * kPoint < 297 - report.bottom() + 0.2 &&
            bottom * kPoint > 297 - report.bottom() - 2 * kLine);
}

void TstReportDocument::ThePagesHaveTheSizeOfThePaper() {
    const QString facts = Said(ReportDocument({QSizeF(148, 210), {}}, kTitle, Numbered(1)), u"pdfinfo"_s);
    const QRegularExpressionMatch size =
        QRegularExpression(u"Page size: +([\\d.]+) x ([\\d.]+) pts"_s).match(facts);
    QVERIFY2(size.hasMatch(), qPrintable(facts));
    QVERIFY(std::abs(size.captured(1).toDouble() - 148 / 25.4 * 72) < 1.5);
    QVERIFY(std::abs(size.captured(2).toDouble() - 210 / 25.4 * 72) < 1.5);
    QVERIFY2(facts.contains(kTitle), qPrintable(facts));
}

void TstReportDocument::AStepThatFailsIsNoticed_data() {
    QTest::addColumn<bool>("begins");
    QTest::addColumn<bool>("turns");
    QTest::addColumn<bool>("ends");
    QTest::addColumn<bool>("isPainted");
    QTest::newRow("none") << true << true << true << true;
    QTest::newRow("begin") << false << true << true << false;
    QTest::newRow("page") << true << false << true << false;
    QTest::newRow("end") << true << true << false << false;
}

void TstReportDocument::AStepThatFailsIsNoticed() {
    QFETCH(bool, begins);
    QFETCH(bool, turns);
    QFETCH(bool, ends);
    QFETCH(bool, isPainted);
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    Pages pages(buffer, begins, turns, ends);
    QCOMPARE(PaintReport(pages, Numbered(500)), isPainted);
}

QTEST_MAIN(TstReportDocument)
#include "tst_report_document.moc"
