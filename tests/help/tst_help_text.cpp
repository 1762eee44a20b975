// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextDocument>

#include "displays/displays_bench.h"
#include "help/help_file.h"
#include "help/help_page.h"
#include "shell/menu_items.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

/// The first captured group of every match in a text.
QStringList AllMatches(const QString& text, const QString& expression) {
    QStringList found;
    const QRegularExpression pattern(expression);
    for (auto each = pattern.globalMatch(text); each.hasNext();) {
        found.append(each.next().captured(1));
    }
    return found;
}

/// Every caption of the menus as shown to the user.
QStringList MenuCaptions() {
    QStringList captions;
    for (const auto& item : shell::kMenuItems) {
        captions.append(item.caption.toString());
    }
    const displays::LinesBench bench;
    for (const auto& display : bench.displays) {
        captions.append(display->Traits().caption.toString());
    }
    for (const auto& item : shell::kTrayMenuItems) {
        captions.append(item.caption.toString());
    }
    captions.append(shell::kAcceptClicksCaption.toString());
    for (const shell::Tool& tool : shell::kTools) {
        captions.append(tool.caption.toString());
    }
    captions.removeAll(QString());  // separators
    return captions;
}

}  // namespace

/// The delivered help text: it must fit the help window and contain the topics that the program opens.
class TstHelpText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EveryTopicThatTheProgramOpensIsThere();
    void EveryLinkLeadsSomewhere();
    void AnchorsAreUnique();
    void EveryHeadingCanBeLinkedTo();
    void EveryMenuCaptionInTheTextExists();
    void EveryMenuItemIsExplained();
    void EveryTopicIsInTheIndex();
    void TheIndexNamesEachWordOnce();
    void NothingIsLoadedFromElsewhere();
    void WordsAreFoundInEitherWidth();

private:
    QString m_html;
    QTextDocument m_document;
    HelpPage m_page;
};

void TstHelpText::initTestCase() {
    m_html = ReadHelpFile(QStringLiteral(TICKWELL_HELP_FILE));
    m_document.setHtml(m_html);
    m_page = HelpPageOf(m_document);
}

void TstHelpText::EveryTopicThatTheProgramOpensIsThere() {
    const QString header = QString::fromUtf8(ReadAll(QStringLiteral(TICKWELL_TOPICS_FILE)));
    const QStringList topics = AllMatches(header, u"constexpr int kHelp\\w+ = (\\d+);"_s);
    QVERIFY(topics.contains(u"6"_s) && topics.contains(u"31"_s) && topics.contains(u"32"_s));
    for (const QString& topic : topics) {
        QVERIFY2(m_page.anchors.contains(u"topic"_s + topic), qPrintable(topic));
    }
}

void TstHelpText::EveryLinkLeadsSomewhere() {
    const QStringList links = AllMatches(m_html, u"href\\s*=\\s*\"([^\"]*)\""_s);
    QVERIFY(links.size() > 50);
    QCOMPARE(links.size(), m_html.count(u"href"));
    for (const QString& link : links) {
        QVERIFY2(m_page.LinkPosition(link), qPrintable(link));
    }
}

void TstHelpText::AnchorsAreUnique() {
    const QStringList names = AllMatches(m_html, u"<a name=\"([^\"]*)\""_s);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
    QCOMPARE(m_page.anchors.size(), names.size());
}

void TstHelpText::EveryHeadingCanBeLinkedTo() {
    const QList<int> places = m_page.anchors.values();
    QVERIFY(m_page.headings.size() > 30);
    for (const HelpHeading& heading : m_page.headings) {
        QVERIFY2(places.contains(heading.position), qPrintable(heading.title));
    }
}

void TstHelpText::EveryMenuCaptionInTheTextExists() {
    const QStringList named = AllMatches(m_html, u"<b class=\"menu\">([^<]*)</b>"_s);
    QCOMPARE(named.size(), m_html.count(u"class=\""));
    for (const QString& caption : named) {
        QVERIFY2(MenuCaptions().contains(caption), qPrintable(caption));
    }
}

void TstHelpText::EveryMenuItemIsExplained() {
    const QStringList named = AllMatches(m_html, u"<b class=\"menu\">([^<]*)</b>"_s);
    const QStringList captions = MenuCaptions();
    QVERIFY(captions.size() > 25);
    for (const QString& caption : captions) {
        QVERIFY2(named.contains(caption), qPrintable(caption));
    }
}

void TstHelpText::EveryTopicIsInTheIndex() {
    QSet<int> reached;
    for (const HelpKeyword& keyword : m_page.index) {
        reached.insert(keyword.position);
    }
    // Topic 1 and the list of questions are general and need no keyword.
    const QSet<QString> general{u"topic1"_s, u"topic52"_s};
    for (auto anchor = m_page.anchors.begin(); anchor != m_page.anchors.end(); ++anchor) {
        if (anchor.key().startsWith(u"topic") && !general.contains(anchor.key())) {
            QVERIFY2(reached.contains(anchor.value()), qPrintable(anchor.key()));
        }
    }
}

void TstHelpText::TheIndexNamesEachWordOnce() {
    QSet<QString> words;
    for (const HelpKeyword& keyword : m_page.index) {
        QVERIFY2(!words.contains(keyword.word), qPrintable(keyword.word));
        words.insert(keyword.word);
    }
    QCOMPARE(words.size(), AllMatches(m_html.section(u"name=\"index\""_s, 1), u"(<li>)"_s).size());
}

void TstHelpText::NothingIsLoadedFromElsewhere() {
    for (const QString& sign : {u"<img"_s, u"src="_s, u"<script"_s, u"<link"_s, u"url("_s, u"://"_s}) {
        QVERIFY2(!m_html.contains(sign), qPrintable(sign));
    }
}

void TstHelpText::WordsAreFoundInEitherWidth() {
    QCOMPARE(m_page.text.Find(u"タイマー"_s).size(), m_page.text.Find(u"ﾀｲﾏｰ"_s).size());
    QVERIFY(m_page.text.Find(u"タイマー"_s).size() > m_document.toPlainText().count(u"タイマー"));
}

QTEST_MAIN(TstHelpText)
#include "tst_help_text.moc"
