// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/sound/late_sound_stream.h"
#include "support/fake_sound_output.h"

using namespace tickwell;
using namespace tickwell::platform;

namespace {

constexpr media::SoundFormat kFormat{.rate = 44100, .channels = 2};

/// A stream whose device opens or fails when the test says so.
struct Bench {
    enum class State { Opening, There, Failed };

    FakeSoundOutput output;
    State state = State::Opening;
    LateSoundStream stream{kFormat, [this]() -> std::optional<std::unique_ptr<media::SoundStream>> {
                               if (state == State::Opening) {
                                   return std::nullopt;
                               }
                               return state == State::There ? output.Open(kFormat) : nullptr;
                           }};

    const FakeSoundOutput::Device& Device() const { return *output.Devices().constFirst(); }
};

const std::vector<qint16> kFirst{1, 2, 3, 4};
const std::vector<qint16> kSecond{5, 6};
const std::vector<qint16> kBoth{1, 2, 3, 4, 5, 6};

}  // namespace

/// A stream whose device is still being opened.
class TstLateSoundStream : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FramesQueuedMeanwhileArePlayedFirst();
    void TheDeviceIsTakenByAnyCall();
    void AHeldStreamIsHeldAfterwards();
    void FramesClearedMeanwhileAreNeverPlayed();
    void ADeviceThatFailsToOpenIsLost();
    void ADeviceThatTakesNothingIsLost();
    void ADeviceThatDisappearsIsLost();
    void DestructionClosesTheDevice();
};

void TstLateSoundStream::FramesQueuedMeanwhileArePlayedFirst() {
    Bench bench;
    QVERIFY(bench.stream.Queue(kFirst));
    QCOMPARE(bench.stream.FramesWaiting(), 2);
    QVERIFY(!bench.stream.IsLost());
    bench.state = Bench::State::There;
    QVERIFY(bench.stream.Queue(kSecond));
    QCOMPARE(bench.output.Devices().size(), 1);
    QCOMPARE(bench.Device().samples, kBoth);
    QVERIFY(!bench.Device().held);
    QCOMPARE(bench.stream.FramesWaiting(), 3);
    bench.output.Sound(2);
    QCOMPARE(bench.stream.FramesWaiting(), 1);
    bench.stream.Clear();
    QCOMPARE(bench.stream.FramesWaiting(), 0);
}

void TstLateSoundStream::TheDeviceIsTakenByAnyCall() {
    Bench bench;
    QVERIFY(bench.stream.Queue(kFirst));
    bench.state = Bench::State::There;
    QCOMPARE(bench.stream.FramesWaiting(), 2);
    QCOMPARE(bench.Device().samples, kFirst);
}

void TstLateSoundStream::AHeldStreamIsHeldAfterwards() {
    Bench bench;
    bench.stream.Hold(true);
    bench.state = Bench::State::There;
    QVERIFY(!bench.stream.IsLost());
    QVERIFY(bench.Device().held);
    bench.stream.Hold(false);
    QVERIFY(!bench.Device().held);
}

void TstLateSoundStream::FramesClearedMeanwhileAreNeverPlayed() {
    Bench bench;
    QVERIFY(bench.stream.Queue(kFirst));
    bench.stream.Clear();
    QCOMPARE(bench.stream.FramesWaiting(), 0);
    bench.state = Bench::State::There;
    QVERIFY(bench.stream.Queue(kSecond));
    QCOMPARE(bench.Device().samples, kSecond);
}

void TstLateSoundStream::ADeviceThatFailsToOpenIsLost() {
    Bench bench;
    QVERIFY(bench.stream.Queue(kFirst));
    bench.state = Bench::State::Failed;
    QVERIFY(bench.stream.IsLost());
    QCOMPARE(bench.stream.FramesWaiting(), 0);
    QVERIFY(!bench.stream.Queue(kSecond));
    bench.state = Bench::State::There;  // too late
    bench.stream.Hold(true);
    bench.stream.Clear();
    QVERIFY(bench.stream.IsLost());
    QCOMPARE(bench.output.Devices().size(), 0);
}

void TstLateSoundStream::ADeviceThatTakesNothingIsLost() {
    FakeSoundOutput output;
    LateSoundStream stream(kFormat, [&output, asked = 0]() mutable {
        if (++asked == 1) {
            return std::optional<std::unique_ptr<media::SoundStream>>();
        }
        auto opened = output.Open(kFormat);
        output.Devices().constFirst()->lost = true;
        return std::optional(std::move(opened));
    });
    QVERIFY(stream.Queue(kFirst));
    QVERIFY(stream.IsLost());
    QCOMPARE(stream.FramesWaiting(), 0);
    QCOMPARE(output.OpenDevices(), 0);
}

void TstLateSoundStream::ADeviceThatDisappearsIsLost() {
    Bench bench;
    bench.state = Bench::State::There;
    QVERIFY(bench.stream.Queue(kFirst));
    bench.output.Devices().constFirst()->lost = true;
    QVERIFY(bench.stream.IsLost());
    QVERIFY(!bench.stream.Queue(kSecond));
}

void TstLateSoundStream::DestructionClosesTheDevice() {
    FakeSoundOutput output;
    {
        LateSoundStream stream(kFormat, [&] { return std::optional(output.Open(kFormat)); });
        QVERIFY(stream.Queue(kFirst));
        QCOMPARE(output.OpenDevices(), 1);
    }
    QCOMPARE(output.OpenDevices(), 0);
}

QTEST_GUILESS_MAIN(TstLateSoundStream)
#include "tst_late_sound_stream.moc"
