// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScrollBar>
#include <QTextDocument>
#include <QTreeWidget>

#include "help/help_bench.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

/// Ways through the help: contents, index, history, links, and finding a word.
class TstHelpNavigation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheContentsFollowTheReader();
    void ClickingTheContentsGoesThere();
    void ClickingTheIndexGoesThere();
    void TheIndexIsFilteredInEitherWidth();
    void BackAndForwardHaveKeys();
    void OnlyLinksWithinTheFileAreFollowed();
    void TypingFindsAndCounts();
    void KeysGoFromHitToHit_data();
    void KeysGoFromHitToHit();
    void WithoutATermF3GoesToTheFindBox();
    void TitlesInTheContentsAreNeverMarkup();
};

void TstHelpNavigation::TheContentsFollowTheReader() {
    HelpBench bench;
    bench.Open(3);
    QCOMPARE(bench.MarkedHeading(), u"Topic 3"_s);
    QScrollBar* bar = bench.Text().verticalScrollBar();
    bar->setValue(bar->value() + 100);
    QCOMPARE(bench.MarkedHeading(), u"Topic 3"_s);
    bar->setValue(bar->value() - 200);
    QCOMPARE(bench.MarkedHeading(), u"Topic 2"_s);
    bar->setValue(0);
    QCOMPARE(bench.MarkedHeading(), QString());
    // The last topics cannot be scrolled to the top, but are still marked.
    bench.desk.ShowTopic(10);
    QCOMPARE(bench.MarkedHeading(), u"Topic 10"_s);
}

void TstHelpNavigation::ClickingTheContentsGoesThere() {
    HelpBench bench;
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

void TstHelpNavigation::ClickingTheIndexGoesThere() {
    HelpBench bench;
    bench.Open();
    bench.Find<QTabWidget>(u"Side"_s).setCurrentIndex(1);
    auto& index = bench.Find<QListWidget>(u"Index"_s);
    QCOMPARE(index.count(), 2);
    QTest::mouseClick(index.viewport(), Qt::LeftButton, {}, index.visualItemRect(index.item(1)).center());
    QCOMPARE(bench.TopLine(), u"Topic 4"_s);
}

void TstHelpNavigation::TheIndexIsFilteredInEitherWidth() {
    HelpBench bench;
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

void TstHelpNavigation::BackAndForwardHaveKeys() {
    HelpBench bench;
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

void TstHelpNavigation::OnlyLinksWithinTheFileAreFollowed() {
    HelpBench bench;
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

void TstHelpNavigation::TypingFindsAndCounts() {
    HelpBench bench;
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

void TstHelpNavigation::KeysGoFromHitToHit_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("F3") << Qt::Key_F3;
    QTest::newRow("Enter in the find box") << Qt::Key_Return;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter;
}

void TstHelpNavigation::KeysGoFromHitToHit() {
    QFETCH(Qt::Key, key);
    HelpBench bench;
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

void TstHelpNavigation::WithoutATermF3GoesToTheFindBox() {
    HelpBench bench;
    bench.Open();
    bench.Press(Qt::Key_F3);
    QVERIFY(bench.Find<QLineEdit>(u"Find"_s).hasFocus());
    QCOMPARE(bench.Count(), QString());
}

void TstHelpNavigation::TitlesInTheContentsAreNeverMarkup() {
    HelpBench bench;
    bench.Write("<h1>Help</h1><h2><a name=\"t\"></a>&lt;b&gt;bold&lt;/b&gt; &amp;amp; 7</h2>");
    bench.Open();
    const QString title = u"<b>bold</b> &amp; 7"_s;
    const auto& contents = bench.Find<QTreeWidget>(u"Contents"_s);
    const QTreeWidgetItem* item = contents.findItems(title, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    QVERIFY(item != nullptr);
    QTextDocument shown;  // rendered as in a tool tip
    shown.setHtml(item->toolTip(0));
    QVERIFY(Qt::mightBeRichText(item->toolTip(0)));
    QCOMPARE(shown.toPlainText(), title);
}

QTEST_MAIN(TstHelpNavigation)
#include "tst_help_navigation.moc"
