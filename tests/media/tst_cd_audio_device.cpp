// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/device_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

/// The CD as a command device.
class TstCdAudioDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WithoutADriveItDoesNotOpen();
    void OpeningLeavesTheDiscAlone();
    void TheTimeFormatNeedsNoDisc();
    void ADiscInNumbers();
    void TimesAreInMinutesByDefault();
    void WithoutADisc_data();
    void WithoutADisc();
    void ADiscOfDataCountsAsNone();
    void QueryingTheDiscChecksTheDrive();
    void Playing_data();
    void Playing();
    void PausingKeepsThePosition();
    void ANewPlayForgetsTheOldEnd();
    void StoppingGoesBackToTheStart();
    void AfterTheEndThePositionIsTheEnd();
    void TheTrackOfAStoppedDiscIsTheOneAtItsPosition();
    void Modes();
    void WaitingLastsUntilTheEnd();
    void WaitingEndsWhenTheDeviceIsClosed();
    void WaitingEndsWithAPause();
    void WithoutSoundNothingPlays();
    void AReadErrorIsReportedUntilTheNextPlay();
    void SectorsBeforeTrackOneAreNotPlayed();
};

void TstCdAudioDevice::WithoutADriveItDoesNotOpen() {
    DeviceBench bench;
    bench.drive.exists = false;
    QCOMPARE(bench.Reply(u"open cdaudio alias CDP"_s), u"error 266"_s);
    QCOMPARE(bench.Reply(u"set CDP time format milliseconds"_s), u"error 263"_s);
    QVERIFY(!bench.devices.ErrorText(266)->isEmpty());
    QCOMPARE(bench.drive.looks, 0);
}

void TstCdAudioDevice::OpeningLeavesTheDiscAlone() {
    DeviceBench bench;
    QCOMPARE(bench.Reply(u"open cdaudio alias CDP"_s), u""_s);
    QCOMPARE(bench.drive.looks, 0);
    QVERIFY(bench.drive.TakeRecord().isEmpty());
}

void TstCdAudioDevice::TheTimeFormatNeedsNoDisc() {
    DeviceBench bench;
    bench.Reply(u"open cdaudio alias CDP"_s);
    for (const QString& format : {u"milliseconds"_s, u"ms"_s, u"msf"_s, u"tmsf"_s}) {
        QCOMPARE(bench.Reply(u"set CDP time format "_s + format), u""_s);
    }
}

void TstCdAudioDevice::ADiscInNumbers() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"status CDP number of tracks"_s), u"3"_s);
    QCOMPARE(bench.Reply(u"status CDP length"_s), u"300000"_s);
    QCOMPARE(bench.Reply(u"status CDP length track 1"_s), u"100000"_s);
    QCOMPARE(bench.Reply(u"status CDP length track 3"_s), u"80000"_s);
    QCOMPARE(bench.Reply(u"status CDP position track 1"_s), u"0"_s);
    QCOMPARE(bench.Reply(u"status CDP position track 3"_s), u"220000"_s);
    QCOMPARE(bench.Reply(u"status CDP media present"_s), u"true"_s);
}

void TstCdAudioDevice::TimesAreInMinutesByDefault() {
    DeviceBench bench;
    bench.drive.PutIn(ThreeTracks());
    bench.Reply(u"open cdaudio alias CDP"_s);
    QCOMPARE(bench.Reply(u"status CDP length"_s), u"05:00:00"_s);
    QCOMPARE(bench.Reply(u"status CDP position track 2"_s), u"01:40:00"_s);
    bench.Reply(u"set CDP time format tmsf"_s);
    QCOMPARE(bench.Reply(u"status CDP position track 2"_s), u"02:00:00:00"_s);
    QCOMPARE(bench.Reply(u"status CDP length track 2"_s), u"02:00:00"_s);
    QCOMPARE(bench.Reply(u"play CDP from 2 to 3"_s), u""_s);
    QCOMPARE(bench.drive.TakeRecord(), QStringList{u"play %1 16500"_s.arg(7500 * 588)});
}

void TstCdAudioDevice::WithoutADisc_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("mode");
    QTest::newRow("no disc") << static_cast<int>(CdStatus::NoDisc) << u"not ready"_s;
    QTest::newRow("not read yet") << static_cast<int>(CdStatus::NotReady) << u"not ready"_s;
    QTest::newRow("tray open") << static_cast<int>(CdStatus::TrayOpen) << u"open"_s;
}

void TstCdAudioDevice::WithoutADisc() {
    QFETCH(int, status);
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.drive.TakeOut(static_cast<CdStatus>(status));
    for (const QString& command :
         {u"play CDP"_s, u"play CDP from 0"_s, u"stop CDP"_s, u"pause CDP"_s,
          u"status CDP number of tracks"_s, u"status CDP length"_s, u"status CDP position"_s,
          u"status CDP position track 1"_s, u"status CDP current track"_s}) {
        QCOMPARE(bench.Reply(command), u"error 276"_s);
    }
    QTEST(bench.Reply(u"status CDP mode"_s), "mode");
    QCOMPARE(bench.Reply(u"status CDP media present"_s), u"false"_s);
    QVERIFY(bench.drive.TakeRecord().isEmpty());
}

void TstCdAudioDevice::ADiscOfDataCountsAsNone() {
    DeviceBench bench;
    bench.PutDisc(DataDisc());
    QCOMPARE(bench.Reply(u"status CDP number of tracks"_s), u"error 276"_s);
    QCOMPARE(bench.Reply(u"status CDP media present"_s), u"false"_s);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"not ready"_s);
    QCOMPARE(bench.Reply(u"play CDP"_s), u"error 276"_s);
}

void TstCdAudioDevice::QueryingTheDiscChecksTheDrive() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"status CDP length"_s);
    QCOMPARE(bench.drive.looks, 0);  // already known
    bench.Reply(u"status CDP media present"_s);
    QCOMPARE(bench.drive.looks, 1);
    bench.drive.TakeOut();
    bench.Reply(u"status CDP length"_s);
    QCOMPARE(bench.drive.looks, 2);
    bench.Reply(u"status CDP mode"_s);
    QCOMPARE(bench.drive.looks, 2);
}

void TstCdAudioDevice::Playing_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("done");
    QTest::newRow("all") << u"play CDP"_s << u"go on 22500"_s;
    QTest::newRow("from") << u"play CDP from 100000"_s << u"play 4410000 22500"_s;
    QTest::newRow("to") << u"play CDP to 100000"_s << u"go on 7500"_s;
    QTest::newRow("from and to") << u"play CDP from 100000 to 220000"_s << u"play 4410000 16500"_s;
    QTest::newRow("to and from") << u"play CDP to 220000 from 100000"_s << u"play 4410000 16500"_s;
    QTest::newRow("to the nearest sector") << u"play CDP from 13 to 300000"_s << u"play 588 22500"_s;
    QTest::newRow("from the end") << u"play CDP from 300000"_s << u"play 13230000 22500"_s;
}

void TstCdAudioDevice::Playing() {
    QFETCH(QString, command);
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(command), u""_s);
    QFETCH(QString, done);
    QCOMPARE(bench.drive.TakeRecord(), QStringList{done});
}

void TstCdAudioDevice::PausingKeepsThePosition() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"play CDP from 100000"_s);
    bench.drive.Pass(1234);
    QCOMPARE(bench.Reply(u"pause CDP"_s), u""_s);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"paused"_s);
    const QString position = bench.Reply(u"status CDP position"_s);
    bench.drive.Pass(1000);
    QCOMPARE(bench.Reply(u"status CDP position"_s), position);
    bench.drive.TakeRecord();
    QCOMPARE(bench.Reply(u"play CDP"_s), u""_s);
    QCOMPARE(bench.drive.TakeRecord(), QStringList{u"go on 22500"_s});
    QCOMPARE(bench.Reply(u"status CDP position"_s), position);
}

void TstCdAudioDevice::ANewPlayForgetsTheOldEnd() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"play CDP from 0 to 100000"_s);
    bench.Reply(u"play CDP"_s);
    bench.drive.Pass(150'000);
    QCOMPARE(bench.Reply(u"status CDP position"_s), u"150000"_s);
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"2"_s);
}

void TstCdAudioDevice::StoppingGoesBackToTheStart() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"play CDP from 100000"_s);
    QCOMPARE(bench.Reply(u"stop CDP"_s), u""_s);
    QCOMPARE(bench.Reply(u"status CDP position"_s), u"0"_s);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"stopped"_s);
}

void TstCdAudioDevice::AfterTheEndThePositionIsTheEnd() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"play CDP from 299000"_s);
    bench.drive.Pass(2000);
    QCOMPARE(bench.Reply(u"status CDP position"_s), u"300000"_s);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"3"_s);
}

void TstCdAudioDevice::TheTrackOfAStoppedDiscIsTheOneAtItsPosition() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"1"_s);
    bench.Reply(u"play CDP from 50000 to 100000"_s);
    bench.drive.Pass(99'999);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"2"_s);
}

void TstCdAudioDevice::Modes() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    const QList<std::pair<CdMode, QString>> modes{{CdMode::Stopped, u"stopped"_s},
                                                  {CdMode::Seeking, u"seeking"_s},
                                                  {CdMode::Playing, u"playing"_s},
                                                  {CdMode::Paused, u"paused"_s}};
    for (const auto& [mode, text] : modes) {
        bench.drive.SetMode(mode);
        QCOMPARE(bench.Reply(u"status CDP mode"_s), text);
    }
}

void TstCdAudioDevice::WaitingLastsUntilTheEnd() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.wait.meanwhile = [&] { bench.drive.Pass(10'000); };
    QCOMPARE(bench.Reply(u"play CDP from 100000 to 200000 wait"_s), u""_s);
    QCOMPARE(bench.wait.rounds, 10);
    QCOMPARE(bench.Reply(u"status CDP position"_s), u"200000"_s);
    QCOMPARE(bench.Reply(u"stop CDP wait"_s), u""_s);  // takes effect at once
    QCOMPARE(bench.wait.rounds, 10);
}

void TstCdAudioDevice::WaitingEndsWhenTheDeviceIsClosed() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.wait.meanwhile = [&] {
        bench.Reply(u"close CDP"_s);
        bench.Reply(u"open cdaudio alias CDP"_s);
        bench.Reply(u"play CDP"_s);  // on another device, which is not waited for
    };
    QCOMPARE(bench.Reply(u"play CDP wait"_s), u""_s);
    QCOMPARE(bench.wait.rounds, 1);
}

void TstCdAudioDevice::WaitingEndsWithAPause() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.wait.meanwhile = [&] { bench.Reply(u"pause CDP"_s); };
    QCOMPARE(bench.Reply(u"play CDP wait"_s), u""_s);
    QCOMPARE(bench.wait.rounds, 1);
}

void TstCdAudioDevice::WithoutSoundNothingPlays() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.drive.sounds = false;
    QCOMPARE(bench.Reply(u"play CDP"_s), u"error 320"_s);
    QCOMPARE(bench.Reply(u"play CDP from 0"_s), u"error 320"_s);
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"stopped"_s);
    QVERIFY(!bench.devices.ErrorText(320)->isEmpty());
}

void TstCdAudioDevice::AReadErrorIsReportedUntilTheNextPlay() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.Reply(u"play CDP"_s);
    bench.drive.FailToRead();
    QCOMPARE(bench.Reply(u"status CDP position"_s), u"error 262"_s);
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"error 262"_s);
    QCOMPARE(bench.Reply(u"pause CDP"_s), u"error 262"_s);
    QCOMPARE(bench.Reply(u"status CDP number of tracks"_s), u"3"_s);  // the number of tracks is still known
    QCOMPARE(bench.Reply(u"play CDP"_s), u""_s);
    QCOMPARE(bench.Reply(u"status CDP current track"_s), u"1"_s);
    bench.wait.meanwhile = [&] { bench.drive.FailToRead(); };
    QCOMPARE(bench.Reply(u"play CDP wait"_s), u"error 262"_s);
}

void TstCdAudioDevice::SectorsBeforeTrackOneAreNotPlayed() {
    DeviceBench bench;
    bench.PutDisc(OddTracks());
    QCOMPARE(bench.Reply(u"play CDP"_s), u""_s);
    QCOMPARE(bench.drive.TakeRecord(), QStringList{u"play %1 30001"_s.arg(32 * 588)});
}

QTEST_GUILESS_MAIN(TstCdAudioDevice)
#include "tst_cd_audio_device.moc"
