// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontInfo>
#include <QTextDocument>
#include <QTreeWidget>

#include "core/errors.h"
#include "help/help_bench.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

/// The help window: opening and closing it, what it reads, and its controls.
class TstHelpWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATopicIsShownAtTheTop_data();
    void ATopicIsShownAtTheTop();
    void ThereIsOneWindow();
    void ClosingDeletesTheWindow();
    void ItCanBeReopenedAtOnce();
    void ItRemembersItsSizeAndThatOfItsText();
    void TheFileIsReadWithEachOpening();
    void AMissingFileIsAnErrorAndNoWindow();
    void NothingElseIsLoaded();
    void NoPictureIsOpened();
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
    HelpBench bench;
    QCOMPARE(bench.Open(topic).windowTitle(), u"Tickwell ヘルプ"_s);
    QCOMPARE(bench.TopLine(), line);
    QVERIFY(!bench.Find<QAction>(u"Back"_s).isEnabled());
    QVERIFY(!bench.Find<QAction>(u"Forward"_s).isEnabled());
}

void TstHelpWindow::ThereIsOneWindow() {
    HelpBench bench;
    const HelpWindow* window = &bench.Open(1);
    QCOMPARE(&bench.Open(7), window);
    QCOMPARE(bench.openings, 1);
    QCOMPARE(bench.TopLine(), u"Topic 7"_s);
    QVERIFY(!window->isModal());
    bench.Find<QAction>(u"Back"_s).trigger();
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
}

void TstHelpWindow::ClosingDeletesTheWindow() {
    HelpBench bench;
    const QPointer<HelpWindow> window = &bench.Open();
    window->close();
    DeleteClosedWindows();
    QVERIFY(window.isNull());
    QVERIFY(bench.desk.Window() == nullptr);
}

void TstHelpWindow::ItCanBeReopenedAtOnce() {
    HelpBench bench;
    const QPointer<HelpWindow> closed = &bench.Open();
    closed->close();
    bench.Open(4);
    DeleteClosedWindows();
    QVERIFY(closed.isNull());
    QVERIFY(bench.desk.Window()->isVisible());
    QCOMPARE(bench.openings, 2);
}

void TstHelpWindow::ItRemembersItsSizeAndThatOfItsText() {
    HelpBench bench;
    bench.Open().resize(711, 533);
    bench.Find<QAction>(u"Larger"_s).trigger();
    const qreal points = QFontInfo(bench.Text().font()).pointSizeF();
    bench.desk.Window()->close();
    DeleteClosedWindows();
    bench.Open();
    QCOMPARE(bench.desk.Window()->size(), QSize(711, 533));
    QCOMPARE(QFontInfo(bench.Text().font()).pointSizeF(), points);
}

void TstHelpWindow::TheFileIsReadWithEachOpening() {
    HelpBench bench;
    bench.Open();
    bench.Write("<h2><a name=\"topic1\"></a>New</h2>");
    bench.Open();
    QCOMPARE(bench.TopLine(), u"Topic 1"_s);
    bench.desk.Window()->close();
    bench.Open();
    QCOMPARE(bench.TopLine(), u"New"_s);
}

void TstHelpWindow::AMissingFileIsAnErrorAndNoWindow() {
    HelpBench bench;
    QVERIFY(QFile::remove(bench.dir.filePath(u"Help.hlp"_s)));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.desk.ShowTopic(1));
    QVERIFY(bench.desk.Window() == nullptr);
    QCOMPARE(bench.openings, 0);
    bench.Write(TenTopics());
    bench.Open(2);
    QCOMPARE(bench.TopLine(), u"Topic 2"_s);
}

void TstHelpWindow::NothingElseIsLoaded() {
    HelpBench bench;
    WriteAll(bench.dir.filePath(u"secret.txt"_s), "secret");
    bench.Open();
    const QUrl url = QUrl::fromLocalFile(bench.dir.filePath(u"secret.txt"_s));
    for (const int type :
         {QTextDocument::HtmlResource, QTextDocument::ImageResource, QTextDocument::StyleSheetResource}) {
        QVERIFY(bench.Text().document()->resource(type, url).toByteArray().isEmpty());
    }
}

/// Qt can load a picture in several ways; a loaded one would be visible or take up space in the text.
void TstHelpWindow::NoPictureIsOpened() {
    HelpBench bench;
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

void TstHelpWindow::TheKeyboardGoesFromPaneToPane() {
    HelpBench bench;
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
    HelpBench bench;
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
    HelpBench bench;
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
