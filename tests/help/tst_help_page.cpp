// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include "help/help_page.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

const QString kHtml =
    u"<h1>ヘルプ</h1>"
    u"<h2><a name=\"first\"></a>はじめに</h2>"
    u"<h3><a name=\"topic1\"></a>時計  の\n画面</h3><p>本文</p>"
    u"<table><tr><td><a name=\"cell\"></a>表</td><td><a href=\"#topic2\">表の中のリンク</a></td></tr></table>"
    u"<h3><a name=\"topic2\"></a>ﾀｲﾏｰ</h3><p><a href=\"#nowhere\">行き先なし</a></p>"
    u"<h2><a name=\"index\"></a>索引</h2>"
    u"<ul><li><a href=\"#topic2\">タイマー</a></li><li><a href=\"#topic1\">時計</a></li>"
    u"<li><a href=\"#nowhere\">行き先なし</a></li><li><a href=\"https://example.org/\">外</a></li></ul>"_s;

struct Page {
    explicit Page(const QString& html) {
        document.setHtml(html);
        page = HelpPageOf(document);
    }
    QString LineAt(int position) const { return document.findBlock(position).text(); }

    QTextDocument document;
    HelpPage page;
};

}  // namespace

/// Headings, index and anchors of a help file.
class TstHelpPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HeadingsBelowTheTitleAreTheContents();
    void EveryAnchorHasItsPlace();
    void AMissingTopicIsTheBeginning();
    void OnlyLinksWithinThePageAreFollowed_data();
    void OnlyLinksWithinThePageAreFollowed();
    void TheIndexConsistsOfTheLinksAfterItsAnchor();
    void APlaceBelongsToItsHeading();
    void FoundPlacesAreThoseOfTheDocument();
    void APageWithoutAnythingHasNothing();
};

void TstHelpPage::HeadingsBelowTheTitleAreTheContents() {
    const Page page(kHtml);
    QStringList contents;
    for (const HelpHeading& heading : page.page.headings) {
        contents.append(QString::number(heading.level) + u' ' + heading.title);
        QCOMPARE(page.LineAt(heading.position).simplified(), heading.title);
    }
    QCOMPARE(contents, (QStringList{u"2 はじめに"_s, u"3 時計 の 画面"_s, u"3 ﾀｲﾏｰ"_s, u"2 索引"_s}));
}

void TstHelpPage::EveryAnchorHasItsPlace() {
    const Page page(kHtml);
    QCOMPARE(page.page.anchors.size(), 5);
    QCOMPARE(page.LineAt(page.page.anchors[u"cell"_s]), u"表"_s);
    QCOMPARE(page.LineAt(page.page.TopicPosition(2)), u"ﾀｲﾏｰ"_s);
}

void TstHelpPage::AMissingTopicIsTheBeginning() {
    const Page page(kHtml);
    QCOMPARE(page.page.TopicPosition(3), 0);
    QCOMPARE(page.page.TopicPosition(-1), 0);
}

void TstHelpPage::OnlyLinksWithinThePageAreFollowed_data() {
    QTest::addColumn<QString>("href");
    QTest::addColumn<bool>("leads");
    QTest::newRow("to a topic") << u"#topic1"_s << true;
    QTest::newRow("to nothing") << u"#nowhere"_s << false;
    QTest::newRow("an empty anchor") << u"#"_s << false;
    QTest::newRow("nothing at all") << QString() << false;
    QTest::newRow("out to the network") << u"https://example.org/#topic1"_s << false;
    QTest::newRow("out to a file") << u"file:///etc/passwd"_s << false;
    QTest::newRow("an anchor without its #") << u"topic1"_s << false;
}

void TstHelpPage::OnlyLinksWithinThePageAreFollowed() {
    QFETCH(QString, href);
    QFETCH(bool, leads);
    QCOMPARE(Page(kHtml).page.LinkPosition(href).has_value(), leads);
}

void TstHelpPage::TheIndexConsistsOfTheLinksAfterItsAnchor() {
    const Page page(kHtml);
    QVERIFY(page.page.index == (QList<HelpKeyword>{{u"タイマー"_s, page.page.TopicPosition(2)},
                                                   {u"時計"_s, page.page.TopicPosition(1)}}));
}

void TstHelpPage::APlaceBelongsToItsHeading() {
    const HelpPage page = Page(kHtml).page;
    QCOMPARE(page.HeadingAt(0), -1);
    QCOMPARE(page.HeadingAt(page.headings[0].position), 0);
    QCOMPARE(page.HeadingAt(page.headings[1].position - 1), 0);
    QCOMPARE(page.HeadingAt(page.headings[1].position), 1);
    QCOMPARE(page.HeadingAt(page.anchors[u"cell"_s]), 1);
    QCOMPARE(page.HeadingAt(1'000'000), 3);
}

void TstHelpPage::FoundPlacesAreThoseOfTheDocument() {
    const Page page(kHtml);
    const QList<TextSpan> hits = page.page.text.Find(u"表の中"_s);
    QCOMPARE(hits.size(), 1);
    QCOMPARE(page.LineAt(hits[0].position), u"表の中のリンク"_s);
}

void TstHelpPage::APageWithoutAnythingHasNothing() {
    const HelpPage page = Page(u"本文だけ"_s).page;
    QVERIFY(page.headings.isEmpty());
    QVERIFY(page.index.isEmpty());
    QCOMPARE(page.TopicPosition(1), 0);
    QCOMPARE(page.HeadingAt(2), -1);
}

QTEST_MAIN(TstHelpPage)
#include "tst_help_page.moc"
