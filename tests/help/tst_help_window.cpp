// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontInfo>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTreeWidget>

#include "core/errors.h"
#include "help/help_desk.h"
#include "support/fake_message_boxes.h"
#include "support/files.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

/// Ten topics of fifty lines each, with the word "clock" in the even ones, and an index.
QByteArray TenTopics() {
    QByteArray html = "<h1>Help</h1><h2><a name=\"all\"></a>All</h2>";
    for (int topic = 1; topic <= 10; ++topic) {
        const QByteArray number = QByteArray::number(topic);
        html += "<h3><a name=\"topic" + number + "\"></a>Topic " + number + "</h3>";
        html += topic % 2 == 0 ? "<p>A clock.</p>" : "<p>A timer.</p>";
        for (int line = 0; line < 50; ++line) {
            html += "<p>Line " + QByteArray::number(line) + "</p>";
        }
    }
    return html +
           "<h2><a name=\"index\"></a>Index</h2><p><a href=\"#topic3\">ﾀｲﾏｰ</a></p>"
           "<p><a href=\"#topic4\">時計</a></p>";
}

struct Bench {
    QTemporaryDir dir;
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    int openings = 0;
    HelpDesk desk{dir.filePath(u"Help.hlp"_s), handlers, [this](QWidget&) { ++openings; }};

    Bench() { Write(TenTopics()); }
    void Write(const QByteArray& html) const { WriteAll(dir.filePath(u"Help.hlp"_s), html); }

    HelpWindow& Open(int topic = 1) {
        desk.ShowTopic(topic);
        if (!QTest::qWaitForWindowActive(desk.Window())) {
            qFatal("the window does not become active");
        }
        return *desk.Window();
    }
    template <typename Control>
    Control& Find(const QString& name) const {
        return *desk.Window()->findChild<Control*>(name);
    }
    HelpBrowser& Text() const { return Find<HelpBrowser>(u"Text"_s); }
    QString Count() const { return Find<QLabel>(u"FindCount"_s).text(); }

    /// The line at the top of the view.
    QString TopLine() const {
        const QPoint edge(0, Text().fontMetrics().height());
        return Text().cursorForPosition(edge).block().text();
    }
    QString MarkedHeading() const {
        const auto& contents = Find<QTreeWidget>(u"Contents"_s);
        return contents.currentItem() == nullptr ? QString() : contents.currentItem()->text(0);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(desk.Window()->focusWidget(), key, modifiers);
    }
};

void DeleteWhatWaits() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

/// The complete help window.
class TstHelpWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATopicIsShownAtTheTop_data();
    void ATopicIsShownAtTheTop();
    void ThereIsOneWindow();
    void ClosedItIsGone();
    void ItOpensAgainAtOnceAfterTheClose();
    void ItRemembersItsSizeAndThatOfItsText();
    void TheFileIsReadWithEachOpening();
    void AMissingFileIsAnErrorAndNoWindow();
    void TheContentsFollowTheReader();
    void TheContentsLeadThere();
    void TheIndexLeadsThere();
    void TheIndexIsFilteredInEitherWidth();
    void BackAndForwardGoByKeys();
    void LinksLeadWithinTheFileAlone();
    void TypingFindsAndCounts();
    void FunctionKeysGoFromHitToHit_data();
    void FunctionKeysGoFromHitToHit();
    void WithNothingToFindF3AsksWhat();
    void TextGrowsAndShrinks();
    void TheSizeLeavesTheReaderWhereTheyAre();
    void KeysChangeTheSize_data();
    void KeysChangeTheSize();
    void APaletteLeavesTheReaderWhereTheyAre();
    void APaletteIsTakenOnWithoutAWarning();
    void ABarAcrossIsShownWhereItIsNeeded_data();
    void ABarAcrossIsShownWhereItIsNeeded();
    void NothingElseIsLoaded();
    void NoPictureIsOpened();
    void TitlesInTheContentsAreNeverMarkup();
    void TheKeyboardGoesFromPaneToPane();
    void EveryControlHasAName();
    void EscCloses();
};

void TstHelpWindow::ATopicIsShownAtTheTop_data() {
    QTest::addColumn<int>("topic");
    QTest::addColumn<QString>("line");
    QTest::newRow("the first") << 1 << u"Topic 1"_s;
    QTest::newRow("one in the middle") << 5 << u"Topic 5"_s;
    QTest::newRow("one that is not there") << 99 << u"Help"_s;
}

void TstHelpWindow::ATopicIsShownAtTheTop() {
    QFETCH(int, topic);
    QFETCH(QString, line);
    Bench bench;
    QCOMPARE(bench.Open(topic).windowTitle(), u"Tickwell ヘルプ"_s);
    QCOMPARE(bench.TopLine(), line);
    QVERIFY(!bench.Find<QAction>(u"Back"_s).isEnabled());
    QVERIFY(!bench.Find<QAction>(u"Forward"_s).isEnabled());
}

void TstHelpWindow::ThereIsOneWindow() {
    Bench bench;
    const HelpWindow* window = &bench.Open(1);
    QCOMPARE(&bench.Open(7), window);
    QCOMPARE(bench.openings, 1);
    QCOMPARE(bench.TopLine(), u"Topic 7"_s);
    QVERIFY(!window->isModal());
    bench.Find<QAction>(u"Back"_s).trigger();
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
}

void TstHelpWindow::ClosedItIsGone() {
    Bench bench;
    const QPointer<HelpWindow> window = &bench.Open();
    window->close();
    DeleteWhatWaits();
    QVERIFY(window.isNull());
    QVERIFY(bench.desk.Window() == nullptr);
}

void TstHelpWindow::ItOpensAgainAtOnceAfterTheClose() {
    Bench bench;
    const QPointer<HelpWindow> closed = &bench.Open();
    closed->close();
    bench.Open(4);
    DeleteWhatWaits();
    QVERIFY(closed.isNull());
    QVERIFY(bench.desk.Window()->isVisible());
    QCOMPARE(bench.openings, 2);
}

void TstHelpWindow::ItRemembersItsSizeAndThatOfItsText() {
    Bench bench;
    bench.Open().resize(711, 533);
    bench.Find<QAction>(u"Larger"_s).trigger();
    const qreal points = QFontInfo(bench.Text().font()).pointSizeF();
    bench.desk.Window()->close();
    DeleteWhatWaits();
    bench.Open();
    QCOMPARE(bench.desk.Window()->size(), QSize(711, 533));
    QCOMPARE(QFontInfo(bench.Text().font()).pointSizeF(), points);
}

void TstHelpWindow::TheFileIsReadWithEachOpening() {
    Bench bench;
    bench.Open();
    bench.Write("<h2><a name=\"topic1\"></a>New</h2>");
    bench.Open();
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
    bench.desk.Window()->close();
    bench.Open();
    QCOMPARE(bench.TopLine(), u"New"_s);
}

void TstHelpWindow::AMissingFileIsAnErrorAndNoWindow() {
    Bench bench;
    QVERIFY(QFile::remove(bench.dir.filePath(u"Help.hlp"_s)));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.desk.ShowTopic(1));
    QVERIFY(bench.desk.Window() == nullptr);
    QCOMPARE(bench.openings, 0);
    bench.Write(TenTopics());
    bench.Open(2);
    QCOMPARE(bench.TopLine(), u"Topic 2"_s);
}

void TstHelpWindow::TheContentsFollowTheReader() {
    Bench bench;
    bench.Open(3);
    QCOMPARE(bench.MarkedHeading(), u"Topic 3"_s);
    QScrollBar* bar = bench.Text().verticalScrollBar();
    bar->setValue(bar->value() + 100);
    QCOMPARE(bench.MarkedHeading(), u"Topic 3"_s);
    bar->setValue(bar->value() - 200);
    QCOMPARE(bench.MarkedHeading(), u"Topic 2"_s);
    bar->setValue(0);
    QCOMPARE(bench.MarkedHeading(), QString());
    // The last topics cannot be scrolled to the top, but are marked as well.
    bench.desk.ShowTopic(10);
    QCOMPARE(bench.MarkedHeading(), u"Topic 10"_s);
}

void TstHelpWindow::TheContentsLeadThere() {
    Bench bench;
    bench.Open();
    auto& contents = bench.Find<QTreeWidget>(u"Contents"_s);
    QCOMPARE(contents.topLevelItemCount(), 2);
    QCOMPARE(contents.topLevelItem(0)->childCount(), 10);
    QTreeWidgetItem* fourth = contents.topLevelItem(0)->child(3);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualItemRect(fourth).center());
    QCOMPARE(bench.TopLine(), u"Topic 4"_s);
    contents.setFocus();
    bench.Press(Qt::Key_Down);
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.TopLine(), u"Topic 5"_s);
    QVERIFY(bench.desk.Window()->isVisible());
}

void TstHelpWindow::TheIndexLeadsThere() {
    Bench bench;
    bench.Open();
    bench.Find<QTabWidget>(u"Side"_s).setCurrentIndex(1);
    auto& index = bench.Find<QListWidget>(u"Index"_s);
    QCOMPARE(index.count(), 2);
    QTest::mouseClick(index.viewport(), Qt::LeftButton, {}, index.visualItemRect(index.item(1)).center());
    QCOMPARE(bench.TopLine(), u"Topic 4"_s);
}

void TstHelpWindow::TheIndexIsFilteredInEitherWidth() {
    Bench bench;
    bench.Open();
    bench.Find<QTabWidget>(u"Side"_s).setCurrentIndex(1);
    auto& index = bench.Find<QListWidget>(u"Index"_s);
    auto& filter = bench.Find<QLineEdit>(u"IndexFilter"_s);
    filter.setFocus();
    filter.setText(u"タイマー"_s);
    QVERIFY(!index.item(0)->isHidden());
    QVERIFY(index.item(1)->isHidden());
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.TopLine(), u"Topic 3"_s);
    filter.setText(u"ない"_s);
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.TopLine(), u"Topic 3"_s);
    filter.clear();
    QVERIFY(!index.item(0)->isHidden() && !index.item(1)->isHidden());
}

void TstHelpWindow::BackAndForwardGoByKeys() {
    Bench bench;
    bench.Open(1);
    bench.Open(5);
    bench.Open(9);
    bench.Press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(bench.TopLine(), u"Topic 5"_s);
    bench.Press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
    bench.Press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
    bench.Press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(bench.TopLine(), u"Topic 5"_s);
    QVERIFY(bench.Find<QAction>(u"Forward"_s).isEnabled());
    bench.Press(Qt::Key_Right, Qt::AltModifier);
    QVERIFY(!bench.Find<QAction>(u"Forward"_s).isEnabled());
}

void TstHelpWindow::LinksLeadWithinTheFileAlone() {
    Bench bench;
    bench.Open();
    for (const QString& url : {u"https://example.org/#topic2"_s, u"file:///etc/passwd"_s, u"#nowhere"_s,
                               u"mailto:someone@example.org"_s}) {
        Q_EMIT bench.Text().anchorClicked(QUrl(url));
        QCOMPARE(bench.TopLine(), u"Topic 1"_s);
    }
    Q_EMIT bench.Text().anchorClicked(QUrl(u"#topic8"_s));
    QCOMPARE(bench.TopLine(), u"Topic 8"_s);
    QVERIFY(bench.Find<QAction>(u"Back"_s).isEnabled());
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstHelpWindow::TypingFindsAndCounts() {
    Bench bench;
    bench.Open(3);
    bench.Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(bench.desk.Window()->focusWidget(), u"CLOCK"_s);
    QCOMPARE(bench.Count(), u"2 / 5 件"_s);
    QCOMPARE(bench.Text().textCursor().selectedText(), u"clock"_s);
    QCOMPARE(bench.MarkedHeading(), u"Topic 4"_s);
    QVERIFY(bench.Text().viewport()->rect().contains(bench.Text().cursorRect()));
    QCOMPARE(bench.Text().extraSelections().size(), 6);
    QTest::keyClicks(bench.desk.Window()->focusWidget(), u"x"_s);
    QCOMPARE(bench.Count(), u"見つかりません"_s);
    QVERIFY(bench.Text().extraSelections().isEmpty());
    bench.Find<QLineEdit>(u"Find"_s).clear();
    QCOMPARE(bench.Count(), QString());
}

void TstHelpWindow::FunctionKeysGoFromHitToHit_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("F3") << Qt::Key_F3;
    QTest::newRow("Enter in the find box") << Qt::Key_Return;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter;
}

void TstHelpWindow::FunctionKeysGoFromHitToHit() {
    QFETCH(Qt::Key, key);
    Bench bench;
    bench.Open(1);
    bench.Press(Qt::Key_F, Qt::ControlModifier);
    bench.Find<QLineEdit>(u"Find"_s).setText(u"clock"_s);
    if (key == Qt::Key_F3) {
        bench.Text().setFocus();
    }
    QCOMPARE(bench.Count(), u"1 / 5 件"_s);
    bench.Press(key);
    QCOMPARE(bench.Count(), u"2 / 5 件"_s);
    QCOMPARE(bench.MarkedHeading(), u"Topic 4"_s);
    bench.Press(key, Qt::ShiftModifier);
    bench.Press(key, Qt::ShiftModifier);
    QCOMPARE(bench.Count(), u"5 / 5 件"_s);
    QCOMPARE(bench.MarkedHeading(), u"Topic 10"_s);
}

void TstHelpWindow::WithNothingToFindF3AsksWhat() {
    Bench bench;
    bench.Open();
    bench.Press(Qt::Key_F3);
    QVERIFY(bench.Find<QLineEdit>(u"Find"_s).hasFocus());
    QCOMPARE(bench.Count(), QString());
}

void TstHelpWindow::TextGrowsAndShrinks() {
    Bench bench;
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

void TstHelpWindow::TheSizeLeavesTheReaderWhereTheyAre() {
    Bench bench;
    bench.Open(5);
    for (int i = 0; i < 4; ++i) {
        bench.Find<QAction>(u"Larger"_s).trigger();
        QCOMPARE(bench.TopLine(), u"Topic 5"_s);
    }
    bench.desk.Window()->resize(400, 300);
    QCoreApplication::processEvents();
    QCOMPARE(bench.TopLine(), u"Topic 5"_s);
}

void TstHelpWindow::KeysChangeTheSize_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("direction");
    QTest::newRow("plus") << Qt::Key_Plus << 1;
    QTest::newRow("equal") << Qt::Key_Equal << 1;
    QTest::newRow("semicolon, a plus on Japanese keyboards") << Qt::Key_Semicolon << 1;
    QTest::newRow("minus") << Qt::Key_Minus << -1;
}

void TstHelpWindow::KeysChangeTheSize() {
    QFETCH(Qt::Key, key);
    QFETCH(int, direction);
    Bench bench;
    bench.Open();
    const qreal plain = bench.Text().font().pointSizeF();
    bench.Press(key, Qt::ControlModifier);
    QVERIFY((bench.Text().font().pointSizeF() - plain) * direction > 0);
    bench.Press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(bench.Text().font().pointSizeF(), plain);
}

void TstHelpWindow::APaletteLeavesTheReaderWhereTheyAre() {
    Bench bench;
    bench.Open(6);
    QPalette dark(Qt::white, Qt::black);
    bench.Text().setPalette(dark);
    QCOMPARE(bench.TopLine(), u"Topic 6"_s);
    QCOMPARE(bench.MarkedHeading(), u"Topic 6"_s);
}

/// During the new layout the scroll bar is hidden and shown again, and the reader's position is queried.
void TstHelpWindow::APaletteIsTakenOnWithoutAWarning() {
    Bench bench;
    bench.Open(6);
    QTest::failOnWarning(QRegularExpression(u"setPosition"_s));
    bench.Text().setPalette(QPalette(Qt::white, Qt::black));
    QCOMPARE(bench.TopLine(), u"Topic 6"_s);
}

void TstHelpWindow::ABarAcrossIsShownWhereItIsNeeded_data() {
    QTest::addColumn<int>("more");
    QTest::addColumn<bool>("shown");
    QTest::newRow("fits") << 0 << false;
    QTest::newRow("a pixel of rounding") << 1 << false;
    QTest::newRow("really too wide") << 40 << true;
}

void TstHelpWindow::ABarAcrossIsShownWhereItIsNeeded() {
    QFETCH(int, more);
    QFETCH(bool, shown);
    Bench bench;
    bench.Open();
    const int margins = qRound(2 * bench.Text().document()->documentMargin());
    const int width = bench.Text().viewport()->width() - margins + more;
    bench.desk.Window()->close();
    // High enough for a vertical scroll bar, which reduces the width of both.
    bench.Write(TenTopics() + "<table width=\"" + QByteArray::number(width) +
                "\"><tr><td>a</td></tr></table>");
    bench.Open();
    QCOMPARE(bench.Text().horizontalScrollBar()->maximum(), more);
    QCOMPARE(bench.Text().horizontalScrollBar()->isVisible(), shown);
}

void TstHelpWindow::NothingElseIsLoaded() {
    Bench bench;
    WriteAll(bench.dir.filePath(u"secret.txt"_s), "secret");
    bench.Open();
    const QUrl url = QUrl::fromLocalFile(bench.dir.filePath(u"secret.txt"_s));
    for (const int type :
         {QTextDocument::HtmlResource, QTextDocument::ImageResource, QTextDocument::StyleSheetResource}) {
        QVERIFY(bench.Text().document()->resource(type, url).toByteArray().isEmpty());
    }
}

/// Qt loads pictures in several ways, and reserves space for them.
void TstHelpWindow::NoPictureIsOpened() {
    Bench bench;
    const QString path = bench.dir.filePath(u"picture.png"_s);
    QImage picture(40, 300, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(path));
    const QByteArray name = path.toUtf8();
    bench.Write("<html><head><link rel=\"stylesheet\" href=\"" + name +
                "\"></head><body><h1>Help</h1><h2><a name=\"t\"></a>Topic</h2><p><img src=\"" + name +
                "\"><img src=\"file://" + name + "\"></p><p style=\"background-image: url(" + name +
                ")\">Text</p></body></html>");
    bench.Open();
    QVERIFY(bench.Text().document()->size().height() < 300);
    const QImage shown = bench.Text().grab().toImage();
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            QVERIFY(shown.pixelColor(x, y) != QColor(Qt::red));
        }
    }
}

void TstHelpWindow::TitlesInTheContentsAreNeverMarkup() {
    Bench bench;
    bench.Write("<h1>Help</h1><h2><a name=\"t\"></a>&lt;b&gt;bold&lt;/b&gt; &amp;amp; 7</h2>");
    bench.Open();
    const QString title = u"<b>bold</b> &amp; 7"_s;
    const auto& contents = bench.Find<QTreeWidget>(u"Contents"_s);
    const QTreeWidgetItem* item = contents.findItems(title, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    QVERIFY(item != nullptr);
    QTextDocument shown;  // like a tool tip
    shown.setHtml(item->toolTip(0));
    QVERIFY(Qt::mightBeRichText(item->toolTip(0)));
    QCOMPARE(shown.toPlainText(), title);
}

void TstHelpWindow::TheKeyboardGoesFromPaneToPane() {
    Bench bench;
    bench.Open();
    QVERIFY(bench.Text().hasFocus());
    bench.Press(Qt::Key_F6);
    QVERIFY(bench.Find<QTreeWidget>(u"Contents"_s).hasFocus());
    bench.Press(Qt::Key_F6);
    QVERIFY(bench.Text().hasFocus());
    bench.Find<QTabWidget>(u"Side"_s).setCurrentIndex(1);
    bench.Press(Qt::Key_F6);
    QVERIFY(bench.Find<QLineEdit>(u"IndexFilter"_s).hasFocus());
}

void TstHelpWindow::EveryControlHasAName() {
    Bench bench;
    bench.Open();
    int controls = 0;
    for (const QWidget* widget : bench.desk.Window()->findChildren<QWidget*>()) {
        const bool ours = !widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_");
        if (ours && widget->focusPolicy() != Qt::NoFocus) {
            QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
            ++controls;
        }
    }
    QVERIFY(controls >= 12);
}

void TstHelpWindow::EscCloses() {
    Bench bench;
    bench.Open();
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.desk.Window() == nullptr || !bench.desk.Window()->isVisible());
    bench.Open();
    bench.Press(Qt::Key_F, Qt::ControlModifier);
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.desk.Window() == nullptr || !bench.desk.Window()->isVisible());
}

QTEST_MAIN(TstHelpWindow)
#include "tst_help_window.moc"
