// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array kAllButtons{kCdPrevious, kCdRewind, kCdPlay, kCdPause, kCdStop, kCdForward, kCdNext};

}  // namespace

/// Buttons and states of the CD player.
class TstCdPlayer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachStateHasItsButtons();
    void PreviousWhileStopped_data();
    void PreviousWhileStopped();
    void NextWhileStopped_data();
    void NextWhileStopped();
    void OtherButtonsWhileStoppedDoNothing();
    void PlayWithNoTrackChosenPlaysTheFirst();
    void PlayPlaysFromTheTrackToTheEndOfTheDisc();
    void PreviousWhilePlaying_data();
    void PreviousWhilePlaying();
    void NextWhilePlaying();
    void StopReturnsToTheWholeDisc();
    void AnyButtonWhilePausedOnlyResumes();
    void PauseAndResumeKeepEveryFrame();
    void ClicksOfRewindAndForwardDoNothing();
    void WhileNotReadyClicksDoNothing();
    void AFailedQueryEndsPreviousWithoutAChange();
    void AFailedStopLeavesItNotReady();
    void WithoutSoundItIsNotReadyAndReportsWhy();
    void TheTrackIsFollowedWhateverIsShown();
    void TheEndOfTheDiscIsAStop();
    void ADiscThatCannotBeReadIsNotReadyForAWhile();
    void FormatsAreNumberedFromOne();
    void AMixedDiscPlaysFromItsFirstTrackOn();
};

void TstCdPlayer::EachStateHasItsButtons() {
    ReadyBench bench;
    QCOMPARE(bench.Enabled(), u"026"_s);
    QCOMPARE(bench.player.Controls().caption, u"停止"_s);
    bench.Click(kCdPlay);
    QCOMPARE(bench.Enabled(), u"013456"_s);
    QCOMPARE(bench.player.Controls().caption, u"再生"_s);
    bench.Click(kCdPause);
    QCOMPARE(bench.Enabled(), u"3"_s);
    QCOMPARE(bench.player.Controls().caption, u"一時停止"_s);
    QCOMPARE(CdButtonsOf(kCdNotReady), nullptr);  // the buttons stay unchanged; CDSetDown disables them
    bench.player.CDSetDown();
    QCOMPARE(bench.Enabled(), u""_s);
    QVERIFY(!bench.player.Controls().menus);
}

void TstCdPlayer::PreviousWhileStopped_data() {
    QTest::addColumn<int>("presses");
    QTest::addColumn<int>("track");
    QTest::newRow("from no track to the last") << 1 << 3;
    QTest::newRow("from the last") << 2 << 2;
    QTest::newRow("to the first") << 3 << 1;
    QTest::newRow("from the first to the last") << 4 << 3;
}

void TstCdPlayer::PreviousWhileStopped() {
    QFETCH(int, presses);
    ReadyBench bench;
    for (int press = 0; press < presses; ++press) {
        bench.Click(kCdPrevious);
    }
    QTEST(bench.Track(), "track");
    QCOMPARE(bench.State(), kCdStopped);
    QVERIFY(bench.Done().isEmpty());  // nothing plays
}

void TstCdPlayer::NextWhileStopped_data() {
    QTest::addColumn<int>("presses");
    QTest::addColumn<int>("track");
    QTest::newRow("from no track to the first") << 1 << 1;
    QTest::newRow("onwards") << 3 << 3;
    QTest::newRow("from the last to the first") << 4 << 1;
}

void TstCdPlayer::NextWhileStopped() {
    QFETCH(int, presses);
    ReadyBench bench;
    for (int press = 0; press < presses; ++press) {
        bench.Click(kCdNext);
    }
    QTEST(bench.Track(), "track");
    QCOMPARE(bench.State(), kCdStopped);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdPlayer::OtherButtonsWhileStoppedDoNothing() {
    ReadyBench bench;
    for (const int index : {kCdRewind, kCdPause, kCdStop, kCdForward, 7, -1}) {
        bench.Click(index);
    }
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdPlayer::PlayWithNoTrackChosenPlaysTheFirst() {
    ReadyBench bench;
    bench.Click(kCdPlay);
    QCOMPARE(bench.Track(), 1);
    QCOMPARE(bench.State(), kCdPlaying);
    QCOMPARE(bench.Done(), QStringList{PlayFrom(0)});
}

void TstCdPlayer::PlayPlaysFromTheTrackToTheEndOfTheDisc() {
    ReadyBench bench;
    bench.Click(kCdNext);
    bench.Click(kCdNext);
    bench.Click(kCdPlay);
    QCOMPARE(bench.Done(), QStringList{PlayFrom(100)});
    QCOMPARE(bench.media.State().MciEndPosition, 300'000);
}

void TstCdPlayer::PreviousWhilePlaying_data() {
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("intoTrack");  // ms
    QTest::addColumn<int>("then");
    QTest::newRow("at its start: the previous one") << 2 << 0 << 1;
    QTest::newRow("999 ms: the previous one") << 2 << 999 << 1;
    QTest::newRow("1000 ms: the same again") << 2 << 1000 << 2;
    QTest::newRow("later: the same again") << 2 << 90'000 << 2;
    QTest::newRow("first, 999 ms: the last") << 1 << 999 << 3;
    QTest::newRow("first, 1000 ms: the same again") << 1 << 1000 << 1;
}

void TstCdPlayer::PreviousWhilePlaying() {
    QFETCH(int, track);
    QFETCH(int, intoTrack);
    QFETCH(int, then);
    constexpr std::array kStarts{0, 0, 100, 220};
    ReadyBench bench;
    bench.PlayTrack(track);
    bench.drive.SetMilliseconds(kStarts[static_cast<std::size_t>(track)] * 1000 + intoTrack);
    bench.Click(kCdPrevious);
    QCOMPARE(bench.Track(), then);
    QCOMPARE(bench.State(), kCdPlaying);
    QCOMPARE(bench.Done(), (QStringList{u"stop"_s, PlayFrom(kStarts[static_cast<std::size_t>(then)])}));
}

void TstCdPlayer::NextWhilePlaying() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.Click(kCdNext);
    QCOMPARE(bench.Track(), 3);
    QCOMPARE(bench.Done(), (QStringList{u"stop"_s, PlayFrom(220)}));
    bench.Click(kCdNext);
    QCOMPARE(bench.Track(), 1);
    QCOMPARE(bench.Done(), (QStringList{u"stop"_s, PlayFrom(0)}));
    QCOMPARE(bench.State(), kCdPlaying);
}

void TstCdPlayer::StopReturnsToTheWholeDisc() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.Click(kCdStop);
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
    QCOMPARE(bench.Done(), QStringList{u"stop"_s});
    QVERIFY(bench.player.Controls().menus);
    QCOMPARE(bench.player.Controls().caption, u"停止"_s);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);  // the device is no longer polled
}

void TstCdPlayer::AnyButtonWhilePausedOnlyResumes() {
    for (const int index : kAllButtons) {
        ReadyBench bench;
        bench.PlayTrack(2);
        bench.Click(kCdPause);
        bench.TakeAll();
        bench.Click(index);
        QCOMPARE(bench.State(), kCdPlaying);
        QCOMPARE(bench.Track(), 2);
        QCOMPARE(bench.player.Controls().caption, u"再生"_s);
        QCOMPARE(bench.Done(), QStringList{u"go on 22500"_s});
    }
}

void TstCdPlayer::PauseAndResumeKeepEveryFrame() {
    ReadyBench bench;
    bench.PlayTrack(1);
    bench.Pass(1234);
    bench.Click(kCdPause);
    const qint64 position = bench.drive.Picture().position;
    bench.Pass(60'000);
    QCOMPARE(bench.State(), kCdPaused);
    QCOMPARE(bench.drive.Picture().position, position);
    bench.Click(kCdPause);
    QCOMPARE(bench.drive.Picture().position, position);
}

void TstCdPlayer::ClicksOfRewindAndForwardDoNothing() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.Click(kCdRewind);
    bench.Click(kCdForward);
    bench.Click(kCdPlay);
    QCOMPARE(bench.State(), kCdPlaying);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdPlayer::WhileNotReadyClicksDoNothing() {
    ReadyBench bench;
    bench.player.CDSetDown();
    for (const int index : kAllButtons) {
        bench.Click(index);
    }
    QCOMPARE(bench.State(), kCdNotReady);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdPlayer::AFailedQueryEndsPreviousWithoutAChange() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.drive.TakeOut();
    bench.Click(kCdPrevious);
    QCOMPARE(bench.Track(), 2);
    QVERIFY(bench.Done().isEmpty());
    QCOMPARE(bench.State(), kCdNotReady);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown()[0].title, u"マルチメディアエラー"_s);
}

void TstCdPlayer::AFailedStopLeavesItNotReady() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.drive.TakeOut();
    bench.Click(kCdStop);
    QCOMPARE(bench.State(), kCdNotReady);
    QVERIFY(!bench.player.Controls().menus);
    QCOMPARE(bench.Enabled(), u""_s);
}

void TstCdPlayer::WithoutSoundItIsNotReadyAndReportsWhy() {
    ReadyBench bench;
    bench.drive.sounds = false;
    bench.Click(kCdPlay);
    QCOMPARE(bench.State(), kCdNotReady);
    QCOMPARE(bench.media.State().MediaError, 320);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstCdPlayer::TheTrackIsFollowedWhateverIsShown() {
    ReadyBench bench;
    bench.player.ShowWindow(false);
    bench.PlayTrack(1);
    bench.Pass(99'000);
    QCOMPARE(bench.Track(), 1);
    bench.Pass(1500);
    QCOMPARE(bench.Track(), 2);
}

void TstCdPlayer::TheEndOfTheDiscIsAStop() {
    ReadyBench bench;
    bench.PlayTrack(3);
    bench.Pass(80'500);
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
    QCOMPARE(bench.Enabled(), u"026"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.Pass(10'000);
    QCOMPARE(bench.Done(), QStringList{u"stop"_s});  // nothing is repeated
}

void TstCdPlayer::ADiscThatCannotBeReadIsNotReadyForAWhile() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.drive.FailToRead();
    bench.Pass(500);
    QCOMPARE(bench.State(), kCdNotReady);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.Pass(3000);
    QCOMPARE(bench.State(), kCdStopped);  // the disc is still in the drive
    QCOMPARE(bench.Enabled(), u"026"_s);
}

void TstCdPlayer::FormatsAreNumberedFromOne() {
    ReadyBench bench;
    QCOMPARE(bench.player.State().CdDisplayFormat, 0);
    for (const int item : {3, 2, 1}) {
        bench.player.cdm_Click(item);
        QCOMPARE(bench.player.State().CdDisplayFormat, item - 1);
    }
}

void TstCdPlayer::AMixedDiscPlaysFromItsFirstTrackOn() {
    ReadyBench bench(MixedDisc());
    bench.Click(kCdPlay);
    QCOMPARE(bench.Done(), QStringList{u"play 0 2250"_s});  // the drive skips the data
    bench.drive.SetMilliseconds(10'000);
    bench.Pass(500);
    QCOMPARE(bench.Track(), 2);
}

QTEST_GUILESS_MAIN(TstCdPlayer)
#include "tst_cd_player.moc"
