// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <numeric>

#include "media/volume_output.h"
#include "support/fake_sound_output.h"

using namespace tickwell;
using namespace tickwell::media;

namespace {

constexpr SoundFormat kMono{22050, 1};

/// Every 16-bit sample once, from the lowest.
std::vector<qint16> EverySample() {
    std::vector<qint16> samples(65536);
    std::iota(samples.begin(), samples.end(), qint16{-32768});
    return samples;
}

struct Bench {
    /// Plays the samples and returns what reaches the device.
    std::vector<qint16> Heard(const std::vector<qint16>& samples) {
        const std::unique_ptr<SoundStream> stream = output.Open(kMono);
        if (stream == nullptr || !stream->Queue(samples)) {
            return {};
        }
        return device.Devices().last()->samples;
    }

    FakeSoundOutput device;
    qint32 volume = 100;
    VolumeOutput output{device, [this] { return volume; }};
};

/// What is left of a sample, in whole parts of it and without its sign.
int Left(int sample, int percent) {
    const int size = (sample < 0 ? -sample : sample) * percent / 100;
    return sample < 0 ? -size : size;
}

}  // namespace

/// Sound at a lower volume.
class TstVolumeOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AtFullVolumeEverySampleIsUnchanged();
    void EverySampleIsScaled_data();
    void EverySampleIsScaled();
    void VolumesOutOfRangeAreClamped();
    void TheVolumeCountsWhenSamplesAreQueued();
    void ATrialHasItsOwnVolume();
    void WithoutADeviceThereIsNoStream();
    void TheRestIsPassedOn();
};

void TstVolumeOutput::AtFullVolumeEverySampleIsUnchanged() {
    Bench bench;
    QVERIFY(bench.Heard(EverySample()) == EverySample());
    QCOMPARE(bench.device.Devices().last()->format, kMono);
}

void TstVolumeOutput::EverySampleIsScaled_data() {
    QTest::addColumn<int>("percent");
    for (const int percent : {0, 1, 33, 50, 75, 99}) {
        QTest::addRow("%d %%", percent) << percent;
    }
}

void TstVolumeOutput::EverySampleIsScaled() {
    QFETCH(const int, percent);
    Bench bench;
    bench.volume = percent;
    const std::vector<qint16> heard = bench.Heard(EverySample());
    QCOMPARE(heard.size(), std::size_t{65536});
    for (int sample = -32768; sample <= 32767; ++sample) {
        QCOMPARE(int{heard.at(static_cast<std::size_t>(sample + 32768))}, Left(sample, percent));
    }
}

void TstVolumeOutput::VolumesOutOfRangeAreClamped() {
    Bench bench;
    bench.volume = 101;
    QVERIFY(bench.Heard({1000, -1000}) == (std::vector<qint16>{1000, -1000}));
    bench.volume = -1;
    QVERIFY(bench.Heard({1000, -1000}) == (std::vector<qint16>{0, 0}));
}

void TstVolumeOutput::TheVolumeCountsWhenSamplesAreQueued() {
    Bench bench;
    const std::unique_ptr<SoundStream> stream = bench.output.Open(kMono);
    QVERIFY(stream->Queue(std::vector<qint16>{1000}));
    bench.volume = 50;
    QVERIFY(stream->Queue(std::vector<qint16>{1000}));
    QVERIFY(bench.device.Devices().last()->samples == (std::vector<qint16>{1000, 500}));
}

void TstVolumeOutput::ATrialHasItsOwnVolume() {
    Bench bench;
    bench.volume = 50;
    const std::unique_ptr<SoundStream> stream = bench.output.Open(kMono);
    bench.output.With(10, [&] { QVERIFY(stream->Queue(std::vector<qint16>{1000})); });
    QVERIFY(stream->Queue(std::vector<qint16>{1000}));
    QVERIFY(bench.device.Devices().last()->samples == (std::vector<qint16>{100, 500}));
}

void TstVolumeOutput::WithoutADeviceThereIsNoStream() {
    Bench bench;
    bench.device.works = false;
    QVERIFY(bench.output.Open(kMono) == nullptr);
}

void TstVolumeOutput::TheRestIsPassedOn() {
    Bench bench;
    bench.volume = 50;
    const std::unique_ptr<SoundStream> stream = bench.output.Open(kMono);
    const auto& device = *bench.device.Devices().last();
    QVERIFY(stream->Queue(std::vector<qint16>{1, 2, 3}));
    QCOMPARE(stream->FramesWaiting(), 3);
    stream->Hold(true);
    QVERIFY(device.held);
    stream->Clear();
    QCOMPARE(stream->FramesWaiting(), 0);
    QVERIFY(!stream->IsLost());
    bench.device.Devices().last()->lost = true;
    QVERIFY(stream->IsLost());
    QVERIFY(!stream->Queue(std::vector<qint16>{1}));
}

QTEST_GUILESS_MAIN(TstVolumeOutput)
#include "tst_volume_output.moc"
