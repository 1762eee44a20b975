// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "media/wave_mix.h"
#include "platform/time/virtual_time.h"
#include "support/fake_sound_output.h"
#include "support/files.h"
#include "support/wave_bytes.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFrames = 1000;
constexpr qint32 kNoSession = 0;

/// A wave file whose samples count up from `first`.
QByteArray Ramp(int first, quint32 rate = 22050) {
    QByteArray data;
    for (int i = 0; i < kFrames; ++i) {
        data += LittleEndian(static_cast<qint16>(first + i));
    }
    return WaveBytes({.rate = rate, .data = data});
}

std::vector<qint16> RampSamples(int first, int times) {
    std::vector<qint16> samples(static_cast<std::size_t>(times) * kFrames);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<qint16>(first + static_cast<int>(i % kFrames));
    }
    return samples;
}

struct Bench {
    Bench() {
        WriteAll(File(u"one"_s), Ramp(0));
        WriteAll(File(u"two"_s), Ramp(5000));
        WriteAll(File(u"fast"_s), Ramp(0, 44100));
        WriteAll(File(u"none"_s), "RIFF, but no wave");
    }

    QString File(const QString& name) const { return folder.filePath(name); }
    qint32 Start() {
        const qint32 session = mix.WaveMixConfigureInit(2);
        return mix.WaveMixActivate(session) ? session : kNoSession;
    }
    void Play(qint32 session, qint32 channel, const QString& name, qint32 loops) {
        mix.WaveMixOpenChannel(session, channel);
        mix.WaveMixPlay(session, channel, mix.WaveMixOpenWave(session, File(name)), loops);
    }
    FakeSoundOutput::Device& Device() { return *output.Devices().last(); }

    QTemporaryDir folder;
    platform::VirtualTime time{QDateTime(QDate(2026, 11, 20), QTime(12, 0))};
    FakeSoundOutput output;
    RealTimerSource realTime{time};
    WaveMix mix{realTime, output};
};

}  // namespace

/// Playing waves on channels.
class TstWaveMix : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RepetitionsAreQueuedWithoutAGap_data();
    void RepetitionsAreQueuedWithoutAGap();
    void ManyRepetitionsAreQueuedAsTheyArePlayed();
    void PlayingAgainReplacesTheSound();
    void TheDeviceOfTheActivationIsTakenOver();
    void ASecondChannelHasADeviceOfItsOwn();
    void ASingleDeviceIsReopenedForAnotherFormat();
    void TheDeviceIsInTheFormatOfTheWave();
    void WithoutSoundActivationFails();
    void DevicesAreClosedALittleAfterTheLastSound();
    void AnUnusedActivationReleasesItsDevice();
    void ADeviceComesBackForTheNextPlay();
    void ALostDeviceIsReopenedByTheNextPlay();
    void FlushingEndsTheSound();
    void ClosingTheSessionClosesEverything();
    void ASecondSessionClosesTheFirst();
    void UnknownHandlesDoNothing();
};

void TstWaveMix::RepetitionsAreQueuedWithoutAGap_data() {
    QTest::addColumn<qint32>("loops");
    QTest::addColumn<int>("times");
    QTest::newRow("once") << 0 << 1;
    QTest::newRow("twice") << 1 << 2;
    QTest::newRow("twelve times") << 11 << 12;
    QTest::newRow("fewer than none is once") << -1 << 1;
}

void TstWaveMix::RepetitionsAreQueuedWithoutAGap() {
    QFETCH(qint32, loops);
    QFETCH(int, times);
    Bench bench;
    bench.Play(bench.Start(), 1, u"one"_s, loops);
    QCOMPARE(bench.output.Devices().size(), 1);
    bench.output.Sound(1'000'000);
    QVERIFY(bench.Device().sounded == RampSamples(0, times));
}

void TstWaveMix::ManyRepetitionsAreQueuedAsTheyArePlayed() {
    constexpr int kTimes = 3000;  // 136 s
    Bench bench;
    bench.Play(bench.Start(), 1, u"one"_s, kTimes - 1);
    QVERIFY(bench.Device().waiting < qint64{62} * 22050);
    for (int i = 0; i < 200; ++i) {
        bench.output.Sound(22050);
        bench.time.Advance(100);
    }
    QVERIFY(bench.Device().sounded == RampSamples(0, kTimes));
}

void TstWaveMix::PlayingAgainReplacesTheSound() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 1, u"one"_s, 5);
    bench.output.Sound(10);
    bench.Play(session, 1, u"two"_s, 0);
    bench.output.Sound(1'000'000);
    std::vector<qint16> expected = RampSamples(0, 1);
    expected.resize(10);
    const std::vector<qint16> second = RampSamples(5000, 1);
    expected.insert(expected.end(), second.begin(), second.end());
    QVERIFY(bench.Device().sounded == expected);
    QCOMPARE(bench.output.Devices().size(), 1);
}

void TstWaveMix::TheDeviceOfTheActivationIsTakenOver() {
    Bench bench;
    const qint32 session = bench.Start();
    QCOMPARE(bench.output.OpenDevices(), 1);
    bench.Play(session, 0, u"one"_s, 0);
    QCOMPARE(bench.output.Devices().size(), 1);
}

void TstWaveMix::ASecondChannelHasADeviceOfItsOwn() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 0, u"one"_s, 0);
    bench.Play(session, 1, u"two"_s, 0);
    QCOMPARE(bench.output.OpenDevices(), 2);
    bench.output.Sound(1'000'000);
    QVERIFY(bench.output.Devices()[0]->sounded == RampSamples(0, 1));
    QVERIFY(bench.output.Devices()[1]->sounded == RampSamples(5000, 1));
}

void TstWaveMix::ASingleDeviceIsReopenedForAnotherFormat() {
    Bench bench;
    bench.output.most = 1;
    const qint32 session = bench.Start();
    bench.Play(session, 1, u"fast"_s, 0);
    QCOMPARE(bench.output.Devices().size(), 2);
    QCOMPARE(bench.Device().format, (SoundFormat{.rate = 44100, .channels = 1}));
    bench.Play(session, 0, u"one"_s, 0);  // no device for this channel: silence
    QCOMPARE(bench.output.Devices().size(), 2);
    bench.output.Sound(1'000'000);
    QVERIFY(bench.Device().sounded == RampSamples(0, 1));
}

void TstWaveMix::TheDeviceIsInTheFormatOfTheWave() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 1, u"one"_s, 0);
    QCOMPARE(bench.Device().format, (SoundFormat{.rate = 22050, .channels = 1}));
    bench.Play(session, 1, u"fast"_s, 0);
    QCOMPARE(bench.Device().format, (SoundFormat{.rate = 44100, .channels = 1}));
    QCOMPARE(bench.output.OpenDevices(), 1);
}

void TstWaveMix::WithoutSoundActivationFails() {
    Bench bench;
    bench.output.works = false;
    QVERIFY(!bench.mix.WaveMixActivate(bench.mix.WaveMixConfigureInit(2)));
    QVERIFY(!bench.mix.WaveMixActivate(kNoSession));
}

void TstWaveMix::DevicesAreClosedALittleAfterTheLastSound() {
    Bench bench;
    bench.Play(bench.Start(), 1, u"one"_s, 0);
    bench.time.Advance(5000);
    QCOMPARE(bench.output.OpenDevices(), 1);  // still playing
    bench.output.Sound(1'000'000);
    bench.time.Advance(kSoundTail);
    QCOMPARE(bench.output.OpenDevices(), 1);
    bench.time.Advance(200);
    QCOMPARE(bench.output.OpenDevices(), 0);
    QVERIFY(!bench.time.UntilNext());  // no timer is running
}

void TstWaveMix::AnUnusedActivationReleasesItsDevice() {
    Bench bench;
    QVERIFY(bench.Start() != kNoSession);
    bench.time.Advance(1000);
    QCOMPARE(bench.output.OpenDevices(), 0);
}

void TstWaveMix::ADeviceComesBackForTheNextPlay() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.time.Advance(1000);
    bench.Play(session, 1, u"one"_s, 0);
    QCOMPARE(bench.output.OpenDevices(), 1);
    bench.output.Sound(1'000'000);
    QVERIFY(bench.Device().sounded == RampSamples(0, 1));
}

void TstWaveMix::ALostDeviceIsReopenedByTheNextPlay() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 1, u"one"_s, 0);
    bench.Device().lost = true;
    bench.Play(session, 1, u"one"_s, 0);
    QCOMPARE(bench.output.Devices().size(), 2);
    bench.output.Sound(1'000'000);
    QVERIFY(bench.Device().sounded == RampSamples(0, 1));
}

void TstWaveMix::FlushingEndsTheSound() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 1, u"one"_s, 5000);
    bench.output.Sound(10);
    bench.mix.WaveMixFlushChannel(session, 1);
    bench.time.Advance(100);  // no repetition is queued
    bench.output.Sound(1'000'000);
    QCOMPARE(bench.Device().sounded.size(), std::size_t{10});
}

void TstWaveMix::ClosingTheSessionClosesEverything() {
    Bench bench;
    const qint32 session = bench.Start();
    bench.Play(session, 0, u"one"_s, 5);
    bench.Play(session, 1, u"one"_s, 5);
    bench.mix.WaveMixCloseSession(session);
    QCOMPARE(bench.output.OpenDevices(), 0);
    QVERIFY(!bench.time.UntilNext());
    bench.Play(session, 1, u"one"_s, 0);
    QCOMPARE(bench.output.OpenDevices(), 0);
}

void TstWaveMix::ASecondSessionClosesTheFirst() {
    Bench bench;
    const qint32 first = bench.Start();
    bench.Play(first, 1, u"one"_s, 5);
    const qint32 second = bench.Start();
    QVERIFY(second != first);
    QCOMPARE(bench.output.OpenDevices(), 1);
    bench.mix.WaveMixCloseSession(first);  // no longer valid
    QCOMPARE(bench.output.OpenDevices(), 1);
}

void TstWaveMix::UnknownHandlesDoNothing() {
    Bench bench;
    QCOMPARE(bench.mix.WaveMixOpenWave(kNoSession, bench.File(u"one"_s)), 0);
    const qint32 session = bench.Start();
    const qint32 wave = bench.mix.WaveMixOpenWave(session, bench.File(u"one"_s));
    QVERIFY(wave != 0);
    QCOMPARE(bench.mix.WaveMixOpenWave(session, bench.File(u"missing"_s)), 0);
    QCOMPARE(bench.mix.WaveMixOpenWave(session, bench.File(u"none"_s)), 0);
    QVERIFY(!bench.mix.WaveMixOpenChannel(session, 2));
    QVERIFY(!bench.mix.WaveMixOpenChannel(session, -1));
    QVERIFY(!bench.mix.WaveMixOpenChannel(kNoSession, 1));
    bench.mix.WaveMixPlay(session, 1, wave, 0);  // the channel was not opened
    QVERIFY(bench.mix.WaveMixOpenChannel(session, 1));
    bench.mix.WaveMixPlay(session, 1, 0, 0);
    bench.mix.WaveMixFreeWave(session, wave);
    bench.mix.WaveMixPlay(session, 1, wave, 0);
    bench.mix.WaveMixFlushChannel(session, 0);
    bench.mix.WaveMixCloseSession(kNoSession);
    QVERIFY(bench.Device().samples.empty());
}

QTEST_GUILESS_MAIN(TstWaveMix)
#include "tst_wave_mix.moc"
