// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_reading.h"
#include "support/discs.h"

using namespace tickwell;
using namespace tickwell::media;

namespace {

constexpr qint64 kSecond = 44'100;  // frames

CdPicture PictureOf(const CdContents& contents, qint64 position = 0) {
    CdPicture picture;
    picture.status = CdStatus::Ready;
    picture.contents = contents;
    picture.position = position;
    return picture;
}

CdPlayerState StateOf(qint32 state, qint32 track = 0) {
    CdPlayerState player;
    player.CdState = state;
    player.CdTrack = track;
    return player;
}

}  // namespace

/// The player's position on the disc.
class TstCdReading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WhatIsPlayedCounts();
    void WhileStoppedTheChosenTrackCounts();
    void ThePositionIsInsideTheTrack();
    void WithoutADiscThereIsNone();
};

void TstCdReading::WhatIsPlayedCounts() {
    for (const qint32 state : {kCdPlaying, kCdPaused}) {
        const CdReading reading = ReadingOf(PictureOf(ThreeTracks(), 101 * kSecond), StateOf(state, 1));
        QCOMPARE(reading.track, 2);
        QCOMPARE(reading.start, 100 * kSecond);
        QCOMPARE(reading.length, 120 * kSecond);
        QCOMPARE(reading.position, kSecond);
    }
}

void TstCdReading::WhileStoppedTheChosenTrackCounts() {
    const CdReading reading = ReadingOf(PictureOf(ThreeTracks(), 5), StateOf(kCdStopped, 3));
    QCOMPARE(reading.track, 3);
    QCOMPARE(reading.start, 220 * kSecond);
    QCOMPARE(reading.length, 80 * kSecond);
    QCOMPARE(reading.position, 0);
    QCOMPARE(ReadingOf(PictureOf(ThreeTracks()), StateOf(kCdStopped, 0)).track, 0);
    QCOMPARE(ReadingOf(PictureOf(ThreeTracks()), StateOf(kCdStopped, 4)).track, 0);
}

void TstCdReading::ThePositionIsInsideTheTrack() {
    const CdReading before = ReadingOf(PictureOf(OddTracks(), 0), StateOf(kCdPlaying));
    QCOMPARE(before.track, 1);
    QCOMPARE(before.start, 0);
    QCOMPARE(before.position, 0);  // sound before the first track
    const CdReading end = ReadingOf(PictureOf(OddTracks(), 30'001 * kFramesPerSector), StateOf(kCdPlaying));
    QCOMPARE(end.track, 3);
    QCOMPARE(end.start, (20'012 - 32) * kFramesPerSector);
    QCOMPARE(end.position, end.length);
}

void TstCdReading::WithoutADiscThereIsNone() {
    QCOMPARE(ReadingOf({}, StateOf(kCdPlaying, 1)).track, 0);
    QCOMPARE(ReadingOf(PictureOf(ThreeTracks()), StateOf(kCdNotReady, 1)).track, 0);
}

QTEST_GUILESS_MAIN(TstCdReading)
#include "tst_cd_reading.moc"
