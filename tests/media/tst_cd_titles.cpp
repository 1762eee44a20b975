// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_lines_bench.h"
#include "media/cd_window.h"
#include "support/child.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// The second track has no title.
const QStringList kTitles{u"夜の音楽"_s, u"月の光"_s, u""_s, u"雨"_s};

/// The CD player on the lines and in its window, with a disc that has titles.
struct Bench : CdLinesBench {
    CDForm window{player, handlers, nullptr};

    explicit Bench(bool shows = true) {
        showsTitles = shows;
        media.FollowSettings();
        Start(ThreeTracks());
        drive.SetTitles(kTitles);
        window.show();
        ChooseFunction();
    }
    QLabel& Title() const { return ChildOf<QLabel>(window, u"Label2"_s); }
    QString TitleInWindow() const { return Title().isVisible() ? Title().text() : u"hidden"_s; }
    void Click(int index) { player.Command1_Click(index); }
    void PassShown(int ms) {
        for (int left = ms; left > 0; left -= 500) {
            Pass(500);
            lines.Tick();
        }
    }
};

}  // namespace

/// The titles of a disc on the lines and in the window.
class TstCdTitles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNothingIsDifferent();
    void ADiscWithoutTitlesLooksAsEver();
    void TheChosenTrackIsNamed();
    void TheNextTrackIsNamedByItself();
    void ATextOfAnotherIsLeftAlone();
    void TitlesThatBecomeKnownAreShown();
    void TheSettingsShowAndHideThem();
    void NobodyLooksForThemUnlessTheyAreShown();
    void ALongTitleDoesNotWidenTheWindow();
    void MarkupIsText();
};

void TstCdTitles::ByDefaultNothingIsDifferent() {
    Bench bench(false);
    QCOMPARE(bench.upper.Text(), u"全トラック数 3"_s);
    bench.Click(kCdNext);
    bench.Click(kCdPlay);
    bench.PassShown(3000);
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ 1 ]    0:03"_s);
    QCOMPARE(bench.TitleInWindow(), u"hidden"_s);
}

void TstCdTitles::ADiscWithoutTitlesLooksAsEver() {
    Bench bench;
    const QSize with = bench.window.sizeHint();
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ Total ]    5:00"_s);
    QCOMPARE(bench.TitleInWindow(), u"hidden"_s);
    QVERIFY(bench.window.sizeHint().height() < with.height());
    QCOMPARE(bench.window.sizeHint().width(), with.width());
}

void TstCdTitles::TheChosenTrackIsNamed() {
    Bench bench;
    QCOMPARE(bench.Both(), u"夜の音楽 / [ Total ]    5:00"_s);
    QCOMPARE(bench.TitleInWindow(), u"夜の音楽"_s);
    bench.Click(kCdNext);
    QCOMPARE(bench.Both(), u"月の光 / [ 1 ]    1:40"_s);
    QCOMPARE(bench.TitleInWindow(), u"月の光"_s);
    bench.Click(kCdNext);
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ 2 ]    2:00"_s);
    QCOMPARE(bench.TitleInWindow(), QString());
    bench.Click(kCdNext);
    QCOMPARE(bench.Both(), u"雨 / [ 3 ]    1:20"_s);
    QCOMPARE(bench.TitleInWindow(), u"雨"_s);
    QCOMPARE(bench.Title().accessibleName(), u"雨"_s);
}

void TstCdTitles::TheNextTrackIsNamedByItself() {
    Bench bench;
    bench.Click(kCdPlay);
    bench.PassShown(99'000);
    QCOMPARE(bench.upper.Text(), u"月の光"_s);
    QCOMPARE(bench.TitleInWindow(), u"月の光"_s);
    bench.PassShown(2000);
    QCOMPARE(bench.upper.Text(), u"全トラック数 3"_s);
    QCOMPARE(bench.TitleInWindow(), QString());
    bench.PassShown(120'000);
    QCOMPARE(bench.upper.Text(), u"雨"_s);
    QCOMPARE(bench.TitleInWindow(), u"雨"_s);
    bench.PassShown(80'000);
    QCOMPARE(bench.Both(), u"夜の音楽 / [ Total ]    5:00"_s);
}

/// Other windows show temporary texts on the lines.
void TstCdTitles::ATextOfAnotherIsLeftAlone() {
    Bench bench;
    bench.Click(kCdPlay);
    bench.PassShown(1000);
    bench.upper.SetText(u"another"_s);
    bench.PassShown(5000);
    QCOMPARE(bench.upper.Text(), u"another"_s);
}

void TstCdTitles::TitlesThatBecomeKnownAreShown() {
    Bench bench;
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    bench.Click(kCdNext);
    bench.Click(kCdPlay);
    bench.drive.SetTitles(kTitles);
    bench.drive.Tell();
    QCOMPARE(bench.upper.Text(), u"月の光"_s);
    QCOMPARE(bench.TitleInWindow(), u"月の光"_s);
    QCOMPARE(bench.State(), kCdPlaying);
    bench.Click(kCdStop);
    bench.Click(kCdNext);
    bench.drive.SetTitles({u"x"_s, u"y"_s, u"z"_s, u"w"_s});
    bench.drive.Tell();
    QCOMPARE(bench.Track(), 1);  // the player was not reset
    QCOMPARE(bench.upper.Text(), u"y"_s);
}

void TstCdTitles::TheSettingsShowAndHideThem() {
    Bench bench;
    bench.Click(kCdNext);
    bench.showsTitles = false;
    bench.media.FollowSettings();
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ 1 ]    1:40"_s);
    QCOMPARE(bench.TitleInWindow(), u"hidden"_s);
    bench.showsTitles = true;
    bench.drive.looks = 0;
    bench.media.FollowSettings();
    QCOMPARE(bench.upper.Text(), u"月の光"_s);
    QCOMPARE(bench.drive.looks, 0);  // the titles are already known
    bench.showsTitles = false;
    bench.media.FollowSettings();
    bench.drive.SetTitles({});
    bench.showsTitles = true;
    bench.media.FollowSettings();
    QCOMPARE(bench.drive.looks, 1);
    bench.media.FollowSettings();
    QCOMPARE(bench.drive.looks, 1);
}

void TstCdTitles::NobodyLooksForThemUnlessTheyAreShown() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.drive.looks = 0;
    bench.showsTitles = true;
    bench.media.FollowSettings();  // the player was never opened
    QCOMPARE(bench.drive.looks, 0);
}

void TstCdTitles::ALongTitleDoesNotWidenTheWindow() {
    Bench bench;
    const QString title = u"とても長い曲名"_s.repeated(20);
    const int width = bench.window.width();
    bench.drive.SetTitles({title});
    bench.drive.Tell();
    QTRY_COMPARE(bench.window.width(), width);
    QVERIFY(bench.Title().text().endsWith(u'…'));
    QVERIFY(bench.Title().fontMetrics().horizontalAdvance(bench.Title().text()) <= bench.Title().width());
    QCOMPARE(bench.Title().accessibleName(), title);
    QVERIFY(bench.Title().toolTip().contains(title));
}

void TstCdTitles::MarkupIsText() {
    Bench bench;
    bench.drive.SetTitles({u"<b>&x</b>"_s});
    bench.drive.Tell();
    QCOMPARE(bench.Title().textFormat(), Qt::PlainText);
    QCOMPARE(bench.TitleInWindow(), u"<b>&x</b>"_s);
}

QTEST_MAIN(TstCdTitles)
#include "tst_cd_titles.moc"
