// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/announcer.h"
#include "help/help_bench.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

/// Three sections, of which the first has links.
struct Bench : HelpBench {
    Bench() {
        QByteArray lines;
        for (int line = 0; line < 99; ++line) {
            lines += "<p>more</p>";
        }
        Write(
            "<h1>Help</h1><p><a href=\"#topic1\">Welcome</a>.</p><h2><a name=\"topic1\"></a>One</h2><p>See "
            "<a href=\"#topic2\">the\n "
            "second"
            "</a> or <a href=\"#topic3\">the third</a>.</p>" +
            lines + "<h2><a name=\"topic2\"></a>Two</h2><p>Second\ntext.</p>" + lines +
            "<h2><a name=\"topic3\"></a>Three</h2><p>The last.</p>" + lines);
    }
    /// The last announcement.
    QString Said() const {
        const auto* announcer = Find<HelpBrowser>(u"Text"_s).findChild<controls::Announcer*>();
        return announcer == nullptr ? QString() : announcer->Text();
    }
};

}  // namespace

/// What a screen reader says of the help.
class TstHelpReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheTopicIsReadWhenTheHelpIsOpened();
    void TheLinkReachedByTabIsRead();
    void TabBeginsWhereTheTextIsRead();
    void TheSectionThatIsJumpedToIsRead();
    void NothingIsReadWhileTheContentsHaveTheFocus();
    void TheStartOfThePageIsReadToTheFirstHeading();
};

void TstHelpReader::TheTopicIsReadWhenTheHelpIsOpened() {
    Bench bench;
    bench.Open(3);
    QVERIFY(bench.Said().startsWith(u"Three The last. more"_s));
}

void TstHelpReader::TheLinkReachedByTabIsRead() {
    Bench bench;
    bench.Open(1);
    QVERIFY(bench.Said().startsWith(u"One See the second or the third. more more"_s));
    QVERIFY(!bench.Said().contains(u"Two"_s));
    bench.Press(Qt::Key_Tab);
    QCOMPARE(bench.Said(), u"the second"_s);
    bench.Press(Qt::Key_Tab);
    QCOMPARE(bench.Said(), u"the third"_s);
    bench.Press(Qt::Key_Backtab);
    QCOMPARE(bench.Said(), u"the second"_s);
}

void TstHelpReader::TabBeginsWhereTheTextIsRead() {
    Bench bench;
    bench.Open(1);
    bench.Press(Qt::Key_Backtab);
    QCOMPARE(bench.Said(), u"Welcome"_s);
    bench.Press(Qt::Key_Tab);
    QCOMPARE(bench.Said(), u"the second"_s);
    bench.desk.ShowTopic(3);  // no link follows
    bench.Press(Qt::Key_Tab);
    QVERIFY(!bench.Text().hasFocus());
    QVERIFY(!bench.Text().textCursor().hasSelection());
}

void TstHelpReader::TheSectionThatIsJumpedToIsRead() {
    Bench bench;
    bench.Open(1);
    bench.Press(Qt::Key_Tab);
    bench.Press(Qt::Key_Return);
    QVERIFY(bench.Said().startsWith(u"Two Second text. more"_s));
    bench.Press(Qt::Key_PageDown);  // still in the same section
    bench.Press(Qt::Key_End);
    QCOMPARE(bench.MarkedHeading(), u"Three"_s);
    QVERIFY(bench.Said().startsWith(u"Three The last. more"_s));
    bench.Find<QAction>(u"Back"_s).trigger();
    QVERIFY(bench.Said().startsWith(u"One See"_s));
}

void TstHelpReader::NothingIsReadWhileTheContentsHaveTheFocus() {
    Bench bench;
    bench.Open(1);
    const QString first = bench.Said();
    auto& contents = bench.Find<QTreeWidget>(u"Contents"_s);
    contents.setFocus();
    bench.desk.ShowTopic(3);
    QCOMPARE(bench.Said(), first);
    bench.Text().setFocus();
    QVERIFY(bench.Said().startsWith(u"Three The last. more"_s));
}

void TstHelpReader::TheStartOfThePageIsReadToTheFirstHeading() {
    Bench bench;
    bench.Open(99);
    QCOMPARE(bench.Said(), u"Help Welcome."_s);
}

QTEST_MAIN(TstHelpReader)
#include "tst_help_reader.moc"
