// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

/// Rewind and fast forward while the button is held.
class TstCdSeek : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HoldingRewindOrForward_data();
    void HoldingRewindOrForward();
    void HoldingRepeatsFourTimesASecond();
    void HoldingEndsWithPlayback();
    void HoldingWhileNotPlayingDoesNothing();
    void ForwardToTheEndStops();
};

void TstCdSeek::HoldingRewindOrForward_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("position");  // ms
    QTest::addColumn<int>("second");    // where playback continues
    QTest::newRow("back") << kCdRewind << 50'000 << 47;
    QTest::newRow("on") << kCdForward << 50'000 << 53;
    QTest::newRow("back into the track before") << kCdRewind << 101'000 << 98;
    QTest::newRow("on into the next track") << kCdForward << 99'000 << 102;
    QTest::newRow("back to the start at most") << kCdRewind << 1000 << 0;
    QTest::newRow("on to the end at most") << kCdForward << 298'000 << 300;
}

void TstCdSeek::HoldingRewindOrForward() {
    QFETCH(int, button);
    QFETCH(int, position);
    QFETCH(int, second);
    ReadyBench bench;
    bench.PlayTrack(1);
    bench.drive.SetMilliseconds(position);
    bench.player.Command1_Press(button);
    QCOMPARE(bench.Done(), QStringList{PlayFrom(second)});
    bench.player.Command1_Release();
    bench.Click(button);
    QVERIFY(bench.Done().isEmpty());
    QCOMPARE(bench.State(), kCdPlaying);
}

void TstCdSeek::HoldingRepeatsFourTimesASecond() {
    ReadyBench bench;
    bench.PlayTrack(1);
    bench.player.Command1_Press(kCdForward);
    bench.time.Advance(1000);  // only the clock advances, not the disc
    bench.player.Command1_Release();
    bench.time.Advance(1000);
    QCOMPARE(bench.Done(), (QStringList{PlayFrom(3), PlayFrom(6), PlayFrom(9), PlayFrom(12), PlayFrom(15)}));
}

void TstCdSeek::HoldingEndsWithPlayback() {
    ReadyBench bench;
    bench.PlayTrack(2);
    bench.player.Command1_Press(kCdRewind);
    bench.TakeAll();
    bench.drive.TakeOut();
    bench.time.Advance(250);
    QCOMPARE(bench.State(), kCdNotReady);
    bench.time.Advance(2000);
    QVERIFY(bench.Done().isEmpty());
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstCdSeek::HoldingWhileNotPlayingDoesNothing() {
    ReadyBench bench;
    bench.player.Command1_Press(kCdForward);
    bench.Click(kCdPlay);
    bench.TakeAll();
    bench.player.Command1_Press(kCdNext);
    bench.time.Advance(1000);
    QVERIFY(bench.Done().isEmpty());
    bench.Click(kCdPause);
    bench.TakeAll();
    bench.player.Command1_Press(kCdForward);
    bench.time.Advance(1000);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdSeek::ForwardToTheEndStops() {
    ReadyBench bench;
    bench.PlayTrack(3);
    bench.drive.SetMilliseconds(299'000);
    bench.player.Command1_Press(kCdForward);
    bench.Pass(1000);
    QCOMPARE(bench.State(), kCdStopped);
    QCOMPARE(bench.Track(), 0);
}

QTEST_GUILESS_MAIN(TstCdSeek)
#include "tst_cd_seek.moc"
