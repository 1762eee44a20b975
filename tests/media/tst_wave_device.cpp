// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/device_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// A wave of 1000 ms, opened with the alias of the timer's sound.
struct WaveBench : DeviceBench {
    WaveBench() { Reply(u"open \"%1\" alias Timer"_s.arg(PutWave(1000))); }

    const FakeSoundOutput::Device& Device() const { return *sound.Devices().last(); }

    /// Plays this many frames and advances the time accordingly.
    void Pass(int ms) {
        sound.Sound(ms);
        time.Advance(ms);
    }
};

}  // namespace

/// A wave file as a command device.
class TstWaveDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsOneTrack();
    void PlayingQueuesItInItsOwnFormat();
    void PlayingARange();
    void PositionAndMode();
    void ADeviceIsOpenOnlyWhileItSounds();
    void PauseKeepsEveryFrame();
    void ResumingByPlayKeepsEveryFrame();
    void PlayingAfterTheEndIsSilent();
    void StoppingGoesBackToTheStart();
    void ClosingEndsTheSound();
    void WithoutSoundPlayingFails();
    void AfterALostServerItPlaysAgain();
    void ALostServerInTheMiddleOfAPlayIsNoticed();
    void WaitingLastsUntilTheEnd();
    void AWaveWithoutFramesEndsAtOnce();
    void TheLengthMeansTheVeryEnd();
};

void TstWaveDevice::ItIsOneTrack() {
    WaveBench bench;
    QCOMPARE(bench.Reply(u"status Timer number of tracks"_s), u"1"_s);
    QCOMPARE(bench.Reply(u"status Timer current track"_s), u"1"_s);
    QCOMPARE(bench.Reply(u"status Timer length"_s), u"1000"_s);
    QCOMPARE(bench.Reply(u"status Timer length track 1"_s), u"1000"_s);
    QCOMPARE(bench.Reply(u"status Timer position track 1"_s), u"0"_s);
    QCOMPARE(bench.Reply(u"status Timer media present"_s), u"true"_s);
    QCOMPARE(bench.Reply(u"set Timer time format ms"_s), u""_s);
    QCOMPARE(bench.Reply(u"set Timer time format milliseconds"_s), u""_s);
}

void TstWaveDevice::PlayingQueuesItInItsOwnFormat() {
    WaveBench bench;
    QVERIFY(bench.sound.Devices().isEmpty());
    QCOMPARE(bench.Reply(u"play Timer"_s), u""_s);
    QCOMPARE(bench.Device().format, (SoundFormat{.rate = 1000, .channels = 1}));
    QCOMPARE(bench.Device().samples.size(), 1000);
    QCOMPARE(bench.Device().samples[999], 999);
}

void TstWaveDevice::PlayingARange() {
    WaveBench bench;
    QCOMPARE(bench.Reply(u"play Timer from 100 to 110"_s), u""_s);
    QCOMPARE(bench.Device().samples.size(), 10);
    QCOMPARE(bench.Device().samples.front(), 100);
    QCOMPARE(bench.Device().samples.back(), 109);
}

void TstWaveDevice::PositionAndMode() {
    WaveBench bench;
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"0"_s);
    bench.Reply(u"play Timer from 100"_s);
    bench.Pass(250);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"350"_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"playing"_s);
    bench.Pass(650);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"1000"_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"stopped"_s);
}

void TstWaveDevice::ADeviceIsOpenOnlyWhileItSounds() {
    WaveBench bench;
    QCOMPARE(bench.sound.OpenDevices(), 0);
    bench.Reply(u"play Timer"_s);
    bench.time.Advance(999);
    bench.sound.Sound(1000);
    bench.time.Advance(1);
    QCOMPARE(bench.sound.OpenDevices(), 1);
    bench.time.Advance(kSoundTail - 1);
    QCOMPARE(bench.sound.OpenDevices(), 1);  // the sound server may still buffer the last frames
    bench.time.Advance(1);
    QCOMPARE(bench.sound.OpenDevices(), 0);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);  // no timer is running
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"1000"_s);
}

void TstWaveDevice::PauseKeepsEveryFrame() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    bench.Pass(300);
    QCOMPARE(bench.Reply(u"pause Timer"_s), u""_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"paused"_s);
    bench.Pass(5000);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"300"_s);
    QCOMPARE(bench.Reply(u"resume Timer"_s), u""_s);
    bench.Pass(1);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"301"_s);
    QCOMPARE(bench.Device().samples.size(), 1000);
    QCOMPARE(bench.sound.Devices().size(), 1);
}

void TstWaveDevice::ResumingByPlayKeepsEveryFrame() {
    WaveBench bench;
    bench.Reply(u"play Timer to 500"_s);
    bench.Pass(300);
    bench.Reply(u"pause Timer"_s);
    QCOMPARE(bench.Reply(u"play Timer"_s), u""_s);
    QCOMPARE(bench.Device().samples.size(), 500 + 700);  // 200 queued frames were dropped and queued again
    QCOMPARE(bench.Device().samples[500], 300);
    QCOMPARE(bench.Device().waiting, 700);
    QVERIFY(!bench.Device().held);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"playing"_s);
}

void TstWaveDevice::PlayingAfterTheEndIsSilent() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    bench.Pass(2000);
    QCOMPARE(bench.Reply(u"play Timer"_s), u""_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(u"play Timer from 0"_s), u""_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"playing"_s);
}

void TstWaveDevice::StoppingGoesBackToTheStart() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    bench.Pass(300);
    QCOMPARE(bench.Reply(u"stop Timer"_s), u""_s);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"0"_s);
    QCOMPARE(bench.sound.OpenDevices(), 0);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    QCOMPARE(bench.Reply(u"pause Timer"_s), u""_s);
    QCOMPARE(bench.Reply(u"resume Timer"_s), u""_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"stopped"_s);
}

void TstWaveDevice::ClosingEndsTheSound() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    QCOMPARE(bench.Reply(u"close Timer"_s), u""_s);
    QCOMPARE(bench.sound.OpenDevices(), 0);
    bench.time.Advance(1000);
}

void TstWaveDevice::WithoutSoundPlayingFails() {
    WaveBench bench;
    bench.sound.works = false;
    QCOMPARE(bench.Reply(u"play Timer from 100"_s), u"error 320"_s);
    QCOMPARE(bench.Reply(u"status Timer mode"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(u"status Timer position"_s), u"100"_s);
    bench.sound.works = true;
    QCOMPARE(bench.Reply(u"play Timer"_s), u""_s);
    QCOMPARE(bench.Device().samples.front(), 100);
}

void TstWaveDevice::AfterALostServerItPlaysAgain() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    bench.sound.Devices().last()->lost = true;
    QCOMPARE(bench.Reply(u"play Timer from 0"_s), u""_s);
    QCOMPARE(bench.sound.Devices().size(), 2);
    QCOMPARE(bench.sound.OpenDevices(), 1);
    QCOMPARE(bench.Device().samples.size(), 1000);
}

void TstWaveDevice::ALostServerInTheMiddleOfAPlayIsNoticed() {
    WaveBench bench;
    bench.Reply(u"play Timer"_s);
    bench.sound.Devices().last()->lost = true;
    bench.sound.works = false;
    QCOMPARE(bench.Reply(u"play Timer from 0"_s), u"error 320"_s);
    QCOMPARE(bench.sound.OpenDevices(), 0);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstWaveDevice::WaitingLastsUntilTheEnd() {
    WaveBench bench;
    bench.wait.meanwhile = [&] { bench.Pass(50); };
    QCOMPARE(bench.Reply(u"play Timer wait"_s), u""_s);
    QCOMPARE(bench.wait.rounds, 20);
}

void TstWaveDevice::AWaveWithoutFramesEndsAtOnce() {
    DeviceBench bench;
    bench.Reply(u"open \"%1\" alias Timer"_s.arg(bench.PutWave(0)));
    QCOMPARE(bench.Reply(u"status Timer length"_s), u"0"_s);
    QCOMPARE(bench.Reply(u"play Timer wait"_s), u""_s);
    QCOMPARE(bench.wait.rounds, 0);
    bench.time.Advance(2 * kSoundTail);
    QCOMPARE(bench.sound.OpenDevices(), 0);
}

void TstWaveDevice::TheLengthMeansTheVeryEnd() {
    DeviceBench bench;
    const QString path = bench.folder.filePath(u"odd.wav"_s);
    WriteAll(path,
             WaveBytes({.channels = 2, .data = Samples16(2 * 22'051)}));  // one frame more than a second
    bench.Reply(u"open \"%1\" alias Timer"_s.arg(path));
    QCOMPARE(bench.Reply(u"status Timer length"_s), u"1000"_s);
    bench.Reply(u"play Timer from 0 to 1000"_s);
    QCOMPARE(bench.sound.Devices().last()->samples.size(), 2 * 22'051);
}

QTEST_GUILESS_MAIN(TstWaveDevice)
#include "tst_wave_device.moc"
