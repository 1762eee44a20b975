// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_lines_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

QString NotReadyTexts() {
    return u"オーディオCDの準備ができていません / 再生不可"_s;
}

}  // namespace

/// The CD player on the main window's lines.
class TstCdLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingTheFunctionShowsTheDisc();
    void ChoosingItWithoutADiscShowsThatOnly();
    void ADiscThatArrivesIsShown();
    void TracksAreChosenOnTheLowerLine();
    void WhilePlayingEachTickShowsTheReading();
    void EachFormatIsShown();
    void WhilePausedTheReadingBlinksHiddenFirst();
    void AfterAResumeTheBlinkStartsAfresh();
    void StopShowsTheWholeDiscAgain();
    void TheEndOfTheDiscShowsTheWholeDisc();
    void ADiscPulledShowsTheNotReadyTexts();
    void TheNotReadyTextsAreWipedInOnce();
    void UnderAnotherFunctionNoLineIsTouched();
    void BeforeTheFunctionIsShownNoLineIsTouched();
    void ChoosingItWhilePlayingShowsTheReading();
    void ChoosingItWhilePausedShowsTheReading();
    void TheShownFunctionChecksForADisc();
    void LeavingTheFunctionEndsTheChecks();
    void ThePlayerOutlivesTheLines();
};

void TstCdLines::ChoosingTheFunctionShowsTheDisc() {
    CdLinesBench bench;
    bench.Start(ThreeTracks());
    bench.ChooseFunction();
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show 全トラック数 3"_s});
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show [ Total ]    5:00"_s});
}

void TstCdLines::ChoosingItWithoutADiscShowsThatOnly() {
    CdLinesBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.ChooseFunction();
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show オーディオCDの準備ができていません"_s});
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 再生不可"_s});
    QCOMPARE(bench.State(), kCdNotReady);
}

void TstCdLines::ADiscThatArrivesIsShown() {
    CdLinesBench bench;
    bench.media.OpenAtStart();
    bench.ChooseFunction();
    QCOMPARE(bench.Both(), NotReadyTexts());
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ Total ]    5:00"_s);
}

void TstCdLines::TracksAreChosenOnTheLowerLine() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdNext);
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show [ 1 ]    1:40"_s});
    bench.player.Command1_Click(kCdPrevious);
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show [ 3 ]    1:20"_s});
    QVERIFY(bench.upper.TakeRecord().isEmpty());
}

void TstCdLines::WhilePlayingEachTickShowsTheReading() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.lines.Tick();
    QVERIFY(bench.lower.TakeRecord().isEmpty());  // stopped: nothing to refresh
    bench.player.Command1_Click(kCdPlay);
    bench.drive.SetMilliseconds(65'000);
    bench.lines.Tick();
    bench.drive.SetMilliseconds(105'000);
    bench.lines.Tick();
    QCOMPARE(bench.lower.TakeRecord(), (QStringList{u"set [ 1 ]    1:05"_s, u"set [ 2 ]    0:05"_s}));
    QCOMPARE(bench.upper.Text(), u"全トラック数 3"_s);  // unchanged while the disc plays
}

void TstCdLines::EachFormatIsShown() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.drive.SetMilliseconds(240'000);
    QStringList shown;
    for (const int item : {1, 2, 3}) {
        bench.player.cdm_Click(item);
        bench.lines.Tick();
        shown.append(bench.lower.Text());
    }
    QCOMPARE(shown, (QStringList{u"[ 3 ]    0:20"_s, u"[ 3 ]    - 1:00"_s, u"[ -0 ]    - 1:00"_s}));
}

void TstCdLines::WhilePausedTheReadingBlinksHiddenFirst() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.drive.SetMilliseconds(65'000);
    bench.lines.Tick();
    bench.player.Command1_Click(kCdPause);
    bench.TakeAll();
    for (int tick = 0; tick < 4; ++tick) {
        bench.lines.Tick();
    }
    const QString reading = u"set [ 1 ]    1:05"_s;
    QCOMPARE(bench.lower.TakeRecord(), (QStringList{u"set "_s, reading, u"set "_s, reading}));
}

void TstCdLines::AfterAResumeTheBlinkStartsAfresh() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.player.Command1_Click(kCdPause);
    bench.lines.Tick();
    bench.player.Command1_Click(kCdPause);
    bench.TakeAll();
    bench.lines.Tick();
    bench.player.Command1_Click(kCdPause);
    bench.lines.Tick();
    QCOMPARE(bench.lower.TakeRecord(), (QStringList{u"set [ 1 ]    0:00"_s, u"set "_s}));
}

void TstCdLines::StopShowsTheWholeDiscAgain() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdNext);
    bench.player.Command1_Click(kCdPlay);
    bench.lines.Tick();
    bench.player.Command1_Click(kCdStop);
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ Total ]    5:00"_s);
}

void TstCdLines::TheEndOfTheDiscShowsTheWholeDisc() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPrevious);
    bench.player.Command1_Click(kCdPlay);
    bench.lines.Tick();
    bench.Pass(81'000);
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ Total ]    5:00"_s);
}

void TstCdLines::ADiscPulledShowsTheNotReadyTexts() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.lines.Tick();
    bench.drive.TakeOut();
    bench.lines.Tick();
    QCOMPARE(bench.Both(), NotReadyTexts());
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdLines::TheNotReadyTextsAreWipedInOnce() {
    CdLinesBench bench;
    bench.StartWithoutDrive();
    bench.ChooseFunction();
    bench.TakeAll();
    bench.Pass(30'000);
    QVERIFY(bench.upper.TakeRecord().isEmpty());
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

void TstCdLines::UnderAnotherFunctionNoLineIsTouched() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.functions.ChangeFunction(kFunctionMemory);
    bench.player.Command1_Click(kCdNext);
    bench.player.Command1_Click(kCdPlay);
    bench.lines.Tick();
    bench.Pass(301'000);
    QCOMPARE(bench.State(), kCdStopped);
    bench.media.Commands().MciPlaySimple(u"Timer"_s, true);
    QCOMPARE(bench.State(), kCdNotReady);
    QVERIFY(bench.upper.TakeRecord().isEmpty());
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

void TstCdLines::BeforeTheFunctionIsShownNoLineIsTouched() {
    CdLinesBench bench;
    bench.functions.ChangeFunction(
        kFunctionCd);  // the stored number of the function, before the start-up delay is over
    bench.Start({});
    bench.player.CDSetDown();
    QVERIFY(bench.upper.TakeRecord().isEmpty());
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

void TstCdLines::ChoosingItWhilePlayingShowsTheReading() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.functions.ChangeFunction(kFunctionClock);
    bench.upper.SetText(u"10月3日"_s);
    bench.drive.SetMilliseconds(105'000);
    bench.TakeAll();
    bench.ChooseFunction();
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show 全トラック数 3"_s});
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show [ 2 ]    0:05"_s});
}

void TstCdLines::ChoosingItWhilePausedShowsTheReading() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.drive.SetMilliseconds(5000);
    bench.player.Command1_Click(kCdPause);
    bench.ChooseFunction();
    QCOMPARE(bench.lower.Text(), u"[ 1 ]    0:05"_s);
    QCOMPARE(bench.State(), kCdPaused);
}

void TstCdLines::TheShownFunctionChecksForADisc() {
    CdLinesBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.ChooseFunction();
    bench.drive.PutIn(ThreeTracks());
    bench.Pass(3000);
    QCOMPARE(bench.Both(), u"全トラック数 3 / [ Total ]    5:00"_s);
}

void TstCdLines::LeavingTheFunctionEndsTheChecks() {
    CdLinesBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.ChooseFunction();
    bench.functions.ChangeFunction(kFunctionClock);
    const int looks = bench.drive.looks;
    bench.Pass(60'000);
    QCOMPARE(bench.drive.looks, looks);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstCdLines::ThePlayerOutlivesTheLines() {
    CdBench bench;
    FakeTextLine upper;
    FakeTextLine lower;
    FakeFunctions functions;
    bench.Start(ThreeTracks());
    {
        CdLines lines(bench.player, {.upper = upper, .lower = lower}, functions);
        functions.ChangeFunction(kFunctionCd);
        lines.Show();
    }
    lower.TakeRecord();
    bench.player.CDSetDown();
    QVERIFY(lower.TakeRecord().isEmpty());
}

QTEST_GUILESS_MAIN(TstCdLines)
#include "tst_cd_lines.moc"
