// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

/// How the player detects that a disc is present or was removed.
class TstCdReadiness : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ADiscIsFoundWhenTheWindowOpens();
    void TheLengthIsKnownThoughNoLineShowsIt();
    void WithoutADiscItIsNotReadyAndShowsNoBox();
    void TheFirstContentsArrive();
    void ADiscPutInLaterIsFoundByACheck();
    void NothingIsCheckedWhileNothingIsShown();
    void OpeningChecksOnce();
    void ADriveThatAppearsLaterIsOpened();
    void ADiscPulledWhilePlaying();
    void ADiscPulledWhilePaused();
    void ASwapWhileStopped();
    void ASwapWhilePlaying();
    void OpeningTheWindowLeavesAPlayingDiscAlone();
    void AnotherDevicesFailureEndsReadinessButNotPlayback();
    void AnotherDevicesFailureDuringAPauseKeepsThePause();
    void TheMenusComeBackWithTheDisc();
    void ADiscOfDataIsNotReady();
};

void TstCdReadiness::ADiscIsFoundWhenTheWindowOpens() {
    CdBench bench;
    bench.Start(ThreeTracks());
    QCOMPARE(bench.player.State().CdTrackCount, 0);
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.player.State().CdTrackCount, 3);
    QCOMPARE(bench.Track(), 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdReadiness::TheLengthIsKnownThoughNoLineShowsIt() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    QCOMPARE(bench.player.State().CdLength, 300'000);
}

void TstCdReadiness::WithoutADiscItIsNotReadyAndShowsNoBox() {
    CdBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdNotReady);
    QCOMPARE(bench.player.Controls().caption, u"再生不可"_s);
    bench.Pass(60'000);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdReadiness::TheFirstContentsArrive() {
    CdBench bench;
    bench.media.OpenAtStart();
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdNotReady);  // not read yet
    QVERIFY(bench.drive.looks > 0);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.player.State().CdTrackCount, 3);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);  // the player no longer checks
}

void TstCdReadiness::ADiscPutInLaterIsFoundByACheck() {
    CdBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.player.ShowWindow(true);
    const int looks = bench.drive.looks;
    bench.time.Advance(2999);
    QCOMPARE(bench.drive.looks, looks);
    bench.time.Advance(1);
    QCOMPARE(bench.drive.looks, looks + 1);
    bench.drive.PutIn(ThreeTracks());  // without a notification from the drive
    bench.time.Advance(3000);
    QCOMPARE(bench.State(), kCdStopped);
}

void TstCdReadiness::NothingIsCheckedWhileNothingIsShown() {
    CdBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.player.ShowWindow(true);
    bench.player.ShowWindow(false);
    const int looks = bench.drive.looks;
    bench.time.Advance(60'000);
    QCOMPARE(bench.drive.looks, looks);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstCdReadiness::OpeningChecksOnce() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.ShowWindow(false);
    const int looks = bench.drive.looks;
    bench.player.ShowWindow(true);
    QCOMPARE(bench.drive.looks, looks + 1);  // the disc may have been changed
    QCOMPARE(bench.State(), kCdStopped);
}

void TstCdReadiness::ADriveThatAppearsLaterIsOpened() {
    CdBench bench;
    bench.StartWithoutDrive();
    bench.boxes.Close();
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdNotReady);
    bench.drive.exists = true;
    bench.drive.PutIn(ThreeTracks());
    bench.time.Advance(3000);
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.player.State().CdLength, 300'000);  // in milliseconds
    QCOMPARE(bench.boxes.Shown().size(), 1);           // the one from the start
}

void TstCdReadiness::ADiscPulledWhilePlaying() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.drive.TakeOut(CdStatus::TrayOpen);
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdNotReady);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.drive.PutIn(OddTracks());
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
}

void TstCdReadiness::ADiscPulledWhilePaused() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.player.Command1_Click(kCdPause);
    bench.drive.TakeOut();
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdNotReady);
}

void TstCdReadiness::ASwapWhileStopped() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdNext);
    bench.drive.PutIn(MixedDisc());
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
    QCOMPARE(bench.player.State().CdLength, 30'000);
}

void TstCdReadiness::ASwapWhilePlaying() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.drive.PutIn(MixedDisc());
    bench.drive.Tell();
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.player.State().CdLength, 30'000);
}

void TstCdReadiness::OpeningTheWindowLeavesAPlayingDiscAlone() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.player.ShowWindow(false);
    bench.TakeAll();
    const int looks = bench.drive.looks;
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdPlaying);
    QCOMPARE(bench.drive.looks, looks);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdReadiness::AnotherDevicesFailureEndsReadinessButNotPlayback() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.Pass(110'000);
    bench.TakeAll();
    bench.media.Commands().MciOpen(u"none.wav"_s, u"Timer"_s, true);
    QCOMPARE(bench.State(), kCdNotReady);
    QCOMPARE(bench.player.Controls().buttons, CdButtons{});
    bench.Pass(3000);
    QCOMPARE(bench.State(), kCdPlaying);
    QCOMPARE(bench.player.Controls().caption, u"再生"_s);
    bench.Pass(500);
    QCOMPARE(bench.Track(), 2);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdReadiness::AnotherDevicesFailureDuringAPauseKeepsThePause() {
    CdBench bench;
    bench.Start(ThreeTracks());
    bench.player.ShowWindow(true);
    bench.player.Command1_Click(kCdPlay);
    bench.player.Command1_Click(kCdPause);
    bench.media.Commands().MciClose(u"Timer"_s, true);
    bench.Pass(3000);
    QCOMPARE(bench.State(), kCdPaused);
    QCOMPARE(bench.player.Controls().caption, u"一時停止"_s);
}

void TstCdReadiness::TheMenusComeBackWithTheDisc() {
    CdBench bench;
    bench.Start({});
    bench.drive.TakeOut();
    bench.player.ShowWindow(true);
    QVERIFY(!bench.player.Controls().menus);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QVERIFY(bench.player.Controls().menus);
    QCOMPARE(bench.player.Controls().buttons, *CdButtonsOf(kCdStopped));
}

void TstCdReadiness::ADiscOfDataIsNotReady() {
    CdBench bench;
    bench.Start(DataDisc());
    bench.player.ShowWindow(true);
    QCOMPARE(bench.State(), kCdNotReady);
    bench.Pass(10'000);
    QCOMPARE(bench.State(), kCdNotReady);
}

QTEST_GUILESS_MAIN(TstCdReadiness)
#include "tst_cd_readiness.moc"
