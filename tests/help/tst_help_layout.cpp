// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QFontInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolButton>

#include "help/help_bench.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

/// Gives the application a font of this size for a test.
class Fonts {
public:
    explicit Fonts(int points) : m_before(QApplication::font()) {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~Fonts() { QApplication::setFont(m_before); }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

private:
    QFont m_before;
};

}  // namespace

/// The help's text in other sizes, colours and widths.
class TstHelpLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextGrowsAndShrinks();
    void ChangingTheSizeKeepsTheReadersPosition();
    void KeysChangeTheSize_data();
    void KeysChangeTheSize();
    void ChangingThePaletteKeepsTheReadersPosition();
    void ChangingThePaletteCausesNoWarning();
    void AHorizontalScrollBarIsShownIfNeeded_data();
    void AHorizontalScrollBarIsShownIfNeeded();
    void TheContentsHaveTheSameShareInEveryFont_data();
    void TheContentsHaveTheSameShareInEveryFont();
    void TheWindowFitsItsScreen_data();
    void TheWindowFitsItsScreen();
};

void TstHelpLayout::TextGrowsAndShrinks() {
    HelpBench bench;
    bench.Open();
    const qreal plain = QFontInfo(bench.Text().font()).pointSizeF();
    const auto points = [&] { return QFontInfo(bench.Text().font()).pointSizeF(); };
    while (bench.Find<QAction>(u"Larger"_s).isEnabled()) {
        bench.Find<QAction>(u"Larger"_s).trigger();
    }
    QVERIFY(qAbs(points() - plain * 3) < 0.5);
    while (bench.Find<QAction>(u"Smaller"_s).isEnabled()) {
        bench.Find<QAction>(u"Smaller"_s).trigger();
    }
    QVERIFY(qAbs(points() - plain / 2) < 0.5);
    bench.Find<QAction>(u"Normal"_s).trigger();
    QCOMPARE(points(), plain);
}

void TstHelpLayout::ChangingTheSizeKeepsTheReadersPosition() {
    HelpBench bench;
    bench.Open(5);
    for (int i = 0; i < 4; ++i) {
        bench.Find<QAction>(u"Larger"_s).trigger();
        QCOMPARE(bench.TopLine(), u"Topic 5"_s);
    }
    bench.desk.Window()->resize(400, 300);
    QCoreApplication::processEvents();
    QCOMPARE(bench.TopLine(), u"Topic 5"_s);
}

void TstHelpLayout::KeysChangeTheSize_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("direction");
    QTest::newRow("plus") << Qt::Key_Plus << 1;
    QTest::newRow("equal") << Qt::Key_Equal << 1;
    QTest::newRow("semicolon, a plus on Japanese keyboards") << Qt::Key_Semicolon << 1;
    QTest::newRow("minus") << Qt::Key_Minus << -1;
}

void TstHelpLayout::KeysChangeTheSize() {
    QFETCH(Qt::Key, key);
    QFETCH(int, direction);
    HelpBench bench;
    bench.Open();
    const qreal plain = bench.Text().font().pointSizeF();
    bench.Press(key, Qt::ControlModifier);
    QVERIFY((bench.Text().font().pointSizeF() - plain) * direction > 0);
    bench.Press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(bench.Text().font().pointSizeF(), plain);
}

void TstHelpLayout::ChangingThePaletteKeepsTheReadersPosition() {
    HelpBench bench;
    bench.Open(6);
    QPalette dark(Qt::white, Qt::black);
    bench.Text().setPalette(dark);
    QCOMPARE(bench.TopLine(), u"Topic 6"_s);
    QCOMPARE(bench.MarkedHeading(), u"Topic 6"_s);
}

/// While the text is laid out again, the scroll bar is hidden and shown, and the reader's position is
/// queried.
void TstHelpLayout::ChangingThePaletteCausesNoWarning() {
    HelpBench bench;
    bench.Open(6);
    QTest::failOnWarning(QRegularExpression(u"setPosition"_s));
    bench.Text().setPalette(QPalette(Qt::white, Qt::black));
    QCOMPARE(bench.TopLine(), u"Topic 6"_s);
}

void TstHelpLayout::TheContentsHaveTheSameShareInEveryFont_data() {
    QTest::addColumn<int>("points");
    QTest::newRow("the window has room") << 5;
    QTest::newRow("usual") << 9;
    QTest::newRow("the window is cut to the screen") << 12;
}

void TstHelpLayout::TheContentsHaveTheSameShareInEveryFont() {
    QFETCH(int, points);
    const Fonts fonts(points);
    HelpBench bench;
    bench.Open();
    const int side = bench.Find<QTabWidget>(u"Side"_s).width();
    const int percent = side * 100 / bench.desk.Window()->width();
    QVERIFY2(percent >= 26 && percent <= 30, qPrintable(QString::number(percent)));
}

void TstHelpLayout::TheWindowFitsItsScreen_data() {
    TheContentsHaveTheSameShareInEveryFont_data();
}

/// With the largest font the buttons need two rows.
void TstHelpLayout::TheWindowFitsItsScreen() {
    QFETCH(int, points);
    const Fonts fonts(points);
    HelpBench bench;
    bench.Open();
    const QSize screen = bench.desk.Window()->screen()->availableSize();
    const QSize window = bench.desk.Window()->size();
    QVERIFY2(window.width() <= screen.width() * 9 / 10, qPrintable(QString::number(window.width())));
    QVERIFY(window.height() <= screen.height() * 9 / 10);
    const auto& larger = bench.Find<QToolButton>(u"Larger"_s);
    QVERIFY(bench.desk.Window()->rect().contains(
        QRect(larger.mapTo(bench.desk.Window(), QPoint()), larger.size())));
    const auto& back = bench.Find<QToolButton>(u"Back"_s);
    QCOMPARE(larger.y() > back.y(), points == 12);
}

void TstHelpLayout::AHorizontalScrollBarIsShownIfNeeded_data() {
    QTest::addColumn<int>("more");
    QTest::addColumn<bool>("shown");
    QTest::newRow("fits") << 0 << false;
    QTest::newRow("a pixel of rounding") << 1 << false;
    QTest::newRow("really too wide") << 40 << true;
}

void TstHelpLayout::AHorizontalScrollBarIsShownIfNeeded() {
    QFETCH(int, more);
    QFETCH(bool, shown);
    HelpBench bench;
    bench.Open();
    const int margins = qRound(2 * bench.Text().document()->documentMargin());
    const int width = bench.Text().viewport()->width() - margins + more;
    bench.desk.Window()->close();
    // The topics keep the vertical scroll bar, so that the width measured above is still the available one.
    bench.Write(TenTopics() + "<table width=\"" + QByteArray::number(width) +
                "\"><tr><td>a</td></tr></table>");
    bench.Open();
    QCOMPARE(bench.Text().horizontalScrollBar()->maximum(), more);
    QCOMPARE(bench.Text().horizontalScrollBar()->isVisible(), shown);
}

QTEST_MAIN(TstHelpLayout)
#include "tst_help_layout.moc"
