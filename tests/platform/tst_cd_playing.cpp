// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "discs/test_disc.h"
#include "platform/drive_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSecond = 44100;  // frames
constexpr int kFrameBytes = 4;

QByteArray Frames(const TestDisc& disc, qint64 from, qint64 count) {
    return disc.bytes.mid(from * kFrameBytes, count * kFrameBytes);
}

}  // namespace

/// Playing a disc: an image of three tones, with an output that the test controls.
class TstCdPlaying : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void PlaybackBeginsWhenEnoughIsQueued();
    void NoMoreThanThreeSecondsAreReadAhead();
    void ThePositionIsWhatHasSounded();
    void ARangeMayBeginInsideASector();
    void APauseKeepsEveryFrame();
    void ALongPauseReleasesDeviceAndHelper();
    void ResumingWithAnotherEndContinuesWithTheNextFrame_data();
    void ResumingWithAnotherEndContinuesWithTheNextFrame();
    void ResumingWhilePlayingChangesNothing();
    void ResumingFromStoppedPlaysFromThePosition();
    void ASecondPlayForgetsTheFirst();
    void StopSetsThePositionToZero();
    void PausingWhileNotPlayingDoesNothing();
    void TheDeviceIsClosedALittleAfterTheEnd();
    void TheDeviceIsKeptIfPlaybackFollowsAtOnce();
    void WithoutSoundNothingPlays();
    void AfterALostServerTheNextPlayOpensANewDevice();
    void ALostOutputEndsPlayback();

private:
    FakeSoundOutput::Device& Device() { return *m_bench->output.Devices().last(); }
    media::CdPicture Picture() const { return m_bench->drive.Picture(); }
    bool WaitFor(const std::function<bool()>& check) { return QTest::qWaitFor(check, kDrivePatience); }
    bool WaitForWaiting(qint64 frames) {
        return WaitFor([&] { return Device().waiting >= frames; });
    }
    /// Plays from a frame to the end of the disc, and waits until sound is played.
    void Play(qint64 from = 0) {
        QVERIFY(m_bench->drive.Play(from, m_disc.end));
        QVERIFY(m_bench->WaitForSound());
    }

    QTemporaryDir m_folder;
    TestDisc m_disc = ThreeTones();
    std::unique_ptr<DriveBench> m_bench;
};

void TstCdPlaying::initTestCase() {
    WriteCueImage(m_disc, m_folder.path(), u"tones"_s);
}

void TstCdPlaying::init() {
    m_bench = std::make_unique<DriveBench>(m_folder.filePath(u"tones.cue"_s));
    QCOMPARE(m_bench->Look().status, media::CdStatus::Ready);
}

void TstCdPlaying::cleanup() {
    m_bench.reset();
}

void TstCdPlaying::PlaybackBeginsWhenEnoughIsQueued() {
    QVERIFY(m_bench->drive.Play(0, m_disc.end));
    QCOMPARE(Picture().mode, media::CdMode::Seeking);
    QCOMPARE(Picture().position, 0);
    QVERIFY(Device().held);
    QCOMPARE(Device().format, (media::SoundFormat{.rate = 44100, .channels = 2}));
    QVERIFY(m_bench->WaitForSound());
    QVERIFY(!Device().held);
    QVERIFY(Device().waiting >= kSecond * 2 / 5);
    // After the queue has run empty, playback waits until enough is queued again.
    QVERIFY(m_bench->drive.Play(0, 10));  // shorter than that: playback starts once all of it is queued
    QVERIFY(m_bench->WaitForSound());
    QCOMPARE(Device().waiting, 10 * media::kFramesPerSector);
}

void TstCdPlaying::NoMoreThanThreeSecondsAreReadAhead() {
    Play();
    QVERIFY(WaitForWaiting(3 * kSecond));
    for (int i = 0; i < 5; ++i) {
        m_bench->Sound(kSecond / 20);
        QVERIFY(WaitForWaiting(3 * kSecond));
        QCOMPARE(Device().waiting, 3 * kSecond);
    }
}

void TstCdPlaying::ThePositionIsWhatHasSounded() {
    Play();
    QCOMPARE(Picture().position, 0);
    m_bench->Sound(1000);
    QCOMPARE(Picture().position, 1000);
    m_bench->Sound(7);
    QCOMPARE(Picture().position, 1007);
    QCOMPARE(m_bench->PlayRest(), Frames(m_disc, 0, m_disc.bytes.size()));
    QCOMPARE(Picture().position, m_disc.end * media::kFramesPerSector);
    QCOMPARE(Picture().mode, media::CdMode::Stopped);
}

void TstCdPlaying::ARangeMayBeginInsideASector() {
    const qint64 from = 321 * media::kFramesPerSector + 587;
    Play(from);
    QCOMPARE(Picture().position, from);
    m_bench->Sound(1000);
    QVERIFY(m_bench->sound == Frames(m_disc, from, 1000));
}

void TstCdPlaying::APauseKeepsEveryFrame() {
    Play();
    for (int i = 0; i < 3; ++i) {
        m_bench->Sound(5001);
        m_bench->drive.Pause();
        QCOMPARE(Picture().mode, media::CdMode::Paused);
        const qint64 position = Picture().position;
        m_bench->Sound(9999);  // held, so nothing is played
        QCOMPARE(Picture().position, position);
        QVERIFY(m_bench->drive.GoOn(m_disc.end));
        QCOMPARE(Picture().mode, media::CdMode::Playing);
    }
    QCOMPARE(m_bench->output.Devices().size(), 1);
    QVERIFY(m_bench->PlayRest() == m_disc.bytes);
}

void TstCdPlaying::ALongPauseReleasesDeviceAndHelper() {
    m_bench = std::make_unique<DriveBench>(m_folder.filePath(u"tones.cue"_s), HelperPath(), kQuick);
    QCOMPARE(m_bench->Look().status, media::CdStatus::Ready);
    Play();
    m_bench->Sound(12345);
    m_bench->drive.Pause();
    QVERIFY(WaitFor([&] { return m_bench->output.OpenDevices() == 0; }));
    QCOMPARE(Picture().mode, media::CdMode::Paused);
    QCOMPARE(Picture().position, 12345);
    QVERIFY(m_bench->drive.GoOn(m_disc.end));
    QVERIFY(m_bench->PlayRest() == m_disc.bytes);
    QCOMPARE(m_bench->output.Devices().size(), 2);
}

void TstCdPlaying::ResumingWithAnotherEndContinuesWithTheNextFrame_data() {
    QTest::addColumn<bool>("isPaused");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("then");
    QTest::newRow("paused, later") << true << 400 << 500;
    QTest::newRow("paused, earlier") << true << 400 << 100;
    QTest::newRow("playing, later") << false << 400 << 500;
    QTest::newRow("playing, earlier") << false << 400 << 100;
}

void TstCdPlaying::ResumingWithAnotherEndContinuesWithTheNextFrame() {
    QFETCH(bool, isPaused);
    QFETCH(int, first);
    QFETCH(int, then);
    QVERIFY(m_bench->drive.Play(0, first));
    QVERIFY(m_bench->WaitForSound());
    m_bench->Sound(3333);
    if (isPaused) {
        m_bench->drive.Pause();
    }
    QVERIFY(m_bench->drive.GoOn(then));
    QVERIFY(m_bench->PlayRest() == m_disc.Sound(0, then));
    QCOMPARE(Picture().position, then * media::kFramesPerSector);
}

void TstCdPlaying::ResumingWhilePlayingChangesNothing() {
    Play();
    m_bench->Sound(3333);
    QVERIFY(m_bench->drive.GoOn(m_disc.end));
    QCOMPARE(Picture().mode, media::CdMode::Playing);
    QVERIFY(m_bench->PlayRest() == m_disc.bytes);
}

void TstCdPlaying::ResumingFromStoppedPlaysFromThePosition() {
    QVERIFY(m_bench->PlayAll(0, 100) == m_disc.Sound(0, 100));
    QCOMPARE(Picture().position, 100 * media::kFramesPerSector);
    QVERIFY(m_bench->drive.GoOn(200));
    QVERIFY(m_bench->PlayRest() == m_disc.Sound(0, 200));
}

void TstCdPlaying::ASecondPlayForgetsTheFirst() {
    Play();
    m_bench->Sound(2000);
    const qint64 from = 548 * media::kFramesPerSector;
    QVERIFY(m_bench->drive.Play(from, 560));
    QCOMPARE(Picture().mode, media::CdMode::Seeking);
    QCOMPARE(Picture().position, from);
    QVERIFY(m_bench->PlayRest() == Frames(m_disc, 0, 2000) + m_disc.Sound(548, 560));
}

void TstCdPlaying::StopSetsThePositionToZero() {
    Play();
    m_bench->Sound(2000);
    m_bench->drive.Stop();
    QCOMPARE(Picture().mode, media::CdMode::Stopped);
    QCOMPARE(Picture().position, 0);
    m_bench->Sound(kSecond);
    QVERIFY(m_bench->sound == Frames(m_disc, 0, 2000));
    QVERIFY(WaitFor([&] { return m_bench->output.OpenDevices() == 0; }));
}

void TstCdPlaying::PausingWhileNotPlayingDoesNothing() {
    m_bench->drive.Pause();
    QCOMPARE(Picture().mode, media::CdMode::Stopped);
    QVERIFY(m_bench->drive.Play(0, m_disc.end));
    m_bench->drive.Pause();  // before the first sound
    QCOMPARE(Picture().mode, media::CdMode::Paused);
    QVERIFY(WaitForWaiting(3 * kSecond));  // reading continues in the meantime
    QVERIFY(Device().held);
    QVERIFY(m_bench->drive.GoOn(m_disc.end));
    QCOMPARE(Picture().mode, media::CdMode::Playing);
}

void TstCdPlaying::TheDeviceIsClosedALittleAfterTheEnd() {
    QVERIFY(m_bench->PlayAll(900, 931) == m_disc.Sound(900, 931));
    QCOMPARE(m_bench->output.OpenDevices(), 1);  // the sound server still plays its buffer
    QElapsedTimer clock;
    clock.start();
    QVERIFY(WaitFor([&] { return m_bench->output.OpenDevices() == 0; }));
    QVERIFY2(clock.elapsed() >= media::kSoundTail - 50, qPrintable(QString::number(clock.elapsed())));
}

void TstCdPlaying::TheDeviceIsKeptIfPlaybackFollowsAtOnce() {
    QVERIFY(!m_bench->PlayAll(900, 931).isEmpty());
    QVERIFY(!m_bench->PlayAll(0, 10).isEmpty());
    QCOMPARE(m_bench->output.Devices().size(), 1);
}

void TstCdPlaying::WithoutSoundNothingPlays() {
    m_bench->output.works = false;
    QVERIFY(!m_bench->drive.Play(0, m_disc.end));
    QCOMPARE(Picture().mode, media::CdMode::Stopped);
    QVERIFY(!m_bench->drive.GoOn(m_disc.end));
    QCOMPARE(Picture().mode, media::CdMode::Stopped);
}

void TstCdPlaying::AfterALostServerTheNextPlayOpensANewDevice() {
    Play();
    m_bench->Sound(2000);
    Device().lost = true;
    QVERIFY(m_bench->drive.Play(0, 10));
    QCOMPARE(m_bench->output.Devices().size(), 2);
    QCOMPARE(m_bench->output.OpenDevices(), 1);
}

void TstCdPlaying::ALostOutputEndsPlayback() {
    Play();
    Device().lost = true;
    m_bench->Sound(2000);
    QVERIFY(WaitFor([&] { return Picture().mode == media::CdMode::Stopped; }));
    QCOMPARE(Picture().position, 2000);
    QVERIFY(Picture().readError);
    QCOMPARE(Picture().status, media::CdStatus::Ready);
    m_bench->drive.Stop();
    QVERIFY(!Picture().readError);
}

QTEST_GUILESS_MAIN(TstCdPlaying)
#include "tst_cd_playing.moc"
