// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

#include "core/errors.h"
#include "media/sound_playback.h"
#include "platform/time/virtual_time.h"
#include "support/fake_message_boxes.h"
#include "support/fake_sound_output.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

const QString kSounds = QStringLiteral(TICKWELL_SOUNDS_FOLDER);
constexpr qint64 kMuch = 10'000'000;  // frames
constexpr qint32 kNoError = 0;
constexpr qint32 kUntouched = 276;  // an error of the command layer

std::vector<qint16> Samples(const QString& file, int times) {
    const WaveFile wave = ReadWaveFile(QDir(kSounds).filePath(file));
    std::vector<qint16> samples;
    for (int i = 0; i < times; ++i) {
        samples.insert(samples.end(), wave.wave.samples.begin(), wave.wave.samples.end());
    }
    return samples;
}

struct Bench {
    explicit Bench(const QString& folder = kSounds)
        : playback({.mix = mix, .sound = sound, .media = media, .boxes = boxes, .timers = time},
                   ProgramFolder(folder)) {
        QDir::setCurrent(QDir::rootPath());
        media.MediaError = kUntouched;
    }
    ~Bench() { QDir::setCurrent(QDir::rootPath()); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    /// All samples that are played from now on.
    std::vector<qint16> Sounded() {
        output.Sound(kMuch);
        return output.Devices().isEmpty() ? std::vector<qint16>() : output.Devices().last()->sounded;
    }

    platform::VirtualTime time{QDateTime(QDate(2026, 11, 20), QTime(12, 0))};
    FakeSoundOutput output;
    RealTimerSource realTime{time};
    WaveMix mix{realTime, output};
    SoundState sound;
    MediaState media;
    FakeMessageBoxes boxes;
    SoundPlayback playback;
};

}  // namespace

/// The sounds of the time signal.
class TstSoundPlayback : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NamesHaveTheirFiles_data();
    void NamesHaveTheirFiles();
    void ASoundIsPlayedAsOftenAsRequested_data();
    void ASoundIsPlayedAsOftenAsRequested();
    void TwelveStrikesEndBeforeTheSessionIsClosed_data();
    void TwelveStrikesEndBeforeTheSessionIsClosed();
    void AnUnknownNameDoesNothingAtAll_data();
    void AnUnknownNameDoesNothingAtAll();
    void TheFolderBecomesTheCurrentOne();
    void ASoundIsLoadedFromTheFolder();
    void TheWaveIsOnTheSecondChannel();
    void TheSessionIsClosedAfterThirtySeconds();
    void EachChimeRestartsTheThirtySeconds();
    void LaterTicksFindNoSession();
    void ASecondChimeTakesThePlaceOfTheFirst();
    void AMissingFileIsSilence();
    void AMissingFolderIsSilence();
    void WithoutSoundTheChimeIsSilent();
    void WithoutSoundAudioStartReportsIfRequested();
    void ASuccessfulStartClearsTheError();
    void StoppingWithoutASessionDoesNothing();
    void LoadingReplacesTheWave();
    void WavesAreKeptOnAllChannels();
    void WithoutASessionNothingIsLoadedOrPlayed();
    void ChannelsThatAreNotThereDoNothing();
    void FlushingEndsTheSound();
    void TheLowestCountOverflows();
};

void TstSoundPlayback::NamesHaveTheirFiles_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("cuckoo clock") << u"鳩時計の音"_s << u"TKW01.wav"_s;
    QTest::newRow("baby") << u"赤ちゃん"_s << u"TKW02.wav"_s;
    QTest::newRow("high strike") << u"機械時計[高い音]"_s << u"TKW03.wav"_s;
    QTest::newRow("low strike") << u"機械時計[低い音]"_s << u"TKW04.wav"_s;
    QTest::newRow("shout") << u"人の掛け声"_s << u"TKW05.wav"_s;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("trailing blank") << u"鳩時計の音 "_s << QString();
    QTest::newRow("full-width brackets") << u"機械時計［高い音］"_s << QString();
    QTest::newRow("the file's name") << u"TKW01.wav"_s << QString();
}

void TstSoundPlayback::NamesHaveTheirFiles() {
    QFETCH(QString, name);
    QFETCH(QString, file);
    QCOMPARE(SoundFile(name).value_or(QString()), file);
}

void TstSoundPlayback::ASoundIsPlayedAsOftenAsRequested_data() {
    QTest::addColumn<qint32>("count");
    QTest::newRow("once") << 1;
    QTest::newRow("three times") << 3;
    QTest::newRow("twelve times") << 12;
}

void TstSoundPlayback::ASoundIsPlayedAsOftenAsRequested() {
    QFETCH(qint32, count);
    Bench bench;
    bench.playback.PlayChime(u"人の掛け声"_s, count);
    QCOMPARE(bench.media.MediaError, kNoError);
    QVERIFY(bench.Sounded() == Samples(u"TKW05.wav"_s, count));
    QCOMPARE(bench.output.Devices().size(), 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstSoundPlayback::TwelveStrikesEndBeforeTheSessionIsClosed_data() {
    QTest::addColumn<QString>("name");
    for (const char16_t* name :
         {u"鳩時計の音", u"赤ちゃん", u"機械時計[高い音]", u"機械時計[低い音]", u"人の掛け声"}) {
        QTest::newRow(QString::fromUtf16(name).toUtf8().constData()) << QString::fromUtf16(name);
    }
}

void TstSoundPlayback::TwelveStrikesEndBeforeTheSessionIsClosed() {
    QFETCH(QString, name);
    Bench bench;
    bench.playback.PlayChime(name, 12);
    const auto frames = static_cast<qint64>(bench.Sounded().size());
    QVERIFY(frames > 0);
    QVERIFY2(frames * 1000 / 22050 < 29'000, qPrintable(QString::number(frames)));
}

void TstSoundPlayback::AnUnknownNameDoesNothingAtAll_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("trailing blank") << u"赤ちゃん "_s;
    QTest::newRow("full-width brackets") << u"機械時計［低い音］"_s;
}

void TstSoundPlayback::AnUnknownNameDoesNothingAtAll() {
    QFETCH(QString, name);
    Bench bench;
    bench.playback.PlayChime(name, 12);
    bench.playback.PlayChime(name, std::numeric_limits<qint32>::min());
    QVERIFY(bench.output.Devices().isEmpty());
    QCOMPARE(bench.sound.MixSession, 0);
    QCOMPARE(bench.media.MediaError, kUntouched);
    QCOMPARE(QDir::currentPath(), QDir::rootPath());
    QVERIFY(!bench.time.UntilNext());  // Timer2 is not started
}

void TstSoundPlayback::TheFolderBecomesTheCurrentOne() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    QCOMPARE(QDir::currentPath(), QDir(kSounds).canonicalPath());
}

void TstSoundPlayback::ASoundIsLoadedFromTheFolder() {
    Bench bench;
    bench.playback.AudioStart(false);
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
    bench.playback.AudioLoadWave(u"TKW02.wav"_s, 1);
    QVERIFY(bench.sound.MixWaves.at(1) != 0);
}

void TstSoundPlayback::TheWaveIsOnTheSecondChannel() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    QVERIFY(bench.sound.MixSession != 0);
    QCOMPARE(bench.sound.MixWaves.size(), 2);
    QCOMPARE(bench.sound.MixWaves[0], 0);
    QVERIFY(bench.sound.MixWaves[1] != 0);
}

void TstSoundPlayback::TheSessionIsClosedAfterThirtySeconds() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 12);
    bench.time.Advance(29'999);
    QVERIFY(bench.sound.MixSession != 0);
    QCOMPARE(bench.output.OpenDevices(), 1);
    bench.time.Advance(1);
    QCOMPARE(bench.sound.MixSession, 0);
    QCOMPARE(bench.output.OpenDevices(), 0);  // anything longer is cut off
}

void TstSoundPlayback::EachChimeRestartsTheThirtySeconds() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    bench.time.Advance(59'900);  // the next tick is due in 0.1 s
    bench.playback.PlayChime(u"鳩時計の音"_s, 12);
    bench.time.Advance(29'999);
    QVERIFY(bench.sound.MixSession != 0);
    bench.time.Advance(1);
    QCOMPARE(bench.sound.MixSession, 0);
}

void TstSoundPlayback::LaterTicksFindNoSession() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    bench.time.Advance(600'000);
    QCOMPARE(bench.sound.MixSession, 0);
    QCOMPARE(bench.output.Devices().size(), 1);
    QVERIFY(bench.time.UntilNext());  // Timer2 continues on purpose
}

void TstSoundPlayback::ASecondChimeTakesThePlaceOfTheFirst() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 12);
    const qint32 session = bench.sound.MixSession;
    bench.playback.PlayChime(u"人の掛け声"_s, 1);
    QVERIFY(bench.sound.MixSession != session);
    QCOMPARE(bench.output.OpenDevices(), 1);
    QVERIFY(bench.Sounded() == Samples(u"TKW05.wav"_s, 1));
}

void TstSoundPlayback::AMissingFileIsSilence() {
    const QTemporaryDir folder;
    CopyFiles(kSounds, folder.path(), {u"TKW02.wav"_s});
    Bench bench(folder.path());
    bench.playback.PlayChime(u"鳩時計の音"_s, 3);
    QVERIFY(bench.sound.MixSession != 0);
    QCOMPARE(bench.sound.MixWaves, (QList<qint32>{0, 0}));
    QCOMPARE(bench.media.MediaError, kNoError);
    QVERIFY(bench.Sounded().empty());
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.playback.PlayChime(u"赤ちゃん"_s, 1);
    QVERIFY(bench.Sounded() == Samples(u"TKW02.wav"_s, 1));
}

void TstSoundPlayback::AMissingFolderIsSilence() {
    Bench bench(u"/no/such/folder"_s);
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    QVERIFY(bench.Sounded().empty());
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstSoundPlayback::WithoutSoundTheChimeIsSilent() {
    Bench bench;
    bench.output.works = false;
    bench.playback.PlayChime(u"鳩時計の音"_s, 12);
    QCOMPARE(bench.media.MediaError, 1);
    QCOMPARE(bench.sound.MixSession, 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.time.Advance(60'000);
    bench.output.works = true;
    bench.playback.PlayChime(u"鳩時計の音"_s, 1);
    QCOMPARE(bench.media.MediaError, kNoError);
}

void TstSoundPlayback::WithoutSoundAudioStartReportsIfRequested() {
    Bench bench;
    bench.output.works = false;
    bench.playback.AudioStart(false);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.playback.AudioStart(true);
    const Message told{MessageIcon::Critical, u"オーディオエラー"_s, u"DLLファイルが開けません"_s};
    QCOMPARE(bench.boxes.Shown(), QList<Message>{told});
    QCOMPARE(bench.media.MediaError, 1);
    QCOMPARE(bench.sound.MixSession, 0);
}

void TstSoundPlayback::ASuccessfulStartClearsTheError() {
    Bench bench;
    bench.playback.AudioStart(true);
    QCOMPARE(bench.media.MediaError, kNoError);
    QCOMPARE(bench.sound.MixWaves, QList<qint32>{0});
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(QDir::currentPath(), QDir(kSounds).canonicalPath());
}

void TstSoundPlayback::StoppingWithoutASessionDoesNothing() {
    Bench bench;
    bench.playback.AudioStop();
    bench.playback.AudioStop();
    QCOMPARE(bench.media.MediaError, kUntouched);
    QVERIFY(bench.output.Devices().isEmpty());
}

void TstSoundPlayback::LoadingReplacesTheWave() {
    Bench bench;
    bench.playback.AudioStart(false);
    bench.playback.AudioLoadWave(u"TKW01.wav"_s, 1);
    bench.playback.AudioPlay(1, 5);
    const qint32 first = bench.sound.MixWaves[1];
    bench.playback.AudioLoadWave(u"TKW05.wav"_s, 1);  // flushes what is being played
    QVERIFY(bench.sound.MixWaves[1] != first);
    bench.playback.AudioPlay(1, 0);
    QVERIFY(bench.Sounded() == Samples(u"TKW05.wav"_s, 1));
}

void TstSoundPlayback::WavesAreKeptOnAllChannels() {
    Bench bench;
    bench.playback.AudioStart(false);
    bench.playback.AudioLoadWave(u"TKW01.wav"_s, 0);
    const qint32 first = bench.sound.MixWaves[0];
    bench.playback.AudioLoadWave(u"TKW05.wav"_s, 1);
    QCOMPARE(bench.sound.MixWaves[0], first);
    bench.playback.AudioPlay(0, 0);
    bench.playback.AudioPlay(1, 1);
    bench.output.Sound(kMuch);
    QCOMPARE(bench.output.Devices().size(), 2);
    QVERIFY(bench.output.Devices()[0]->sounded == Samples(u"TKW01.wav"_s, 1));
    QVERIFY(bench.output.Devices()[1]->sounded == Samples(u"TKW05.wav"_s, 2));
    bench.playback.AudioStop();
    QCOMPARE(bench.output.OpenDevices(), 0);
}

void TstSoundPlayback::WithoutASessionNothingIsLoadedOrPlayed() {
    Bench bench;
    bench.playback.AudioLoadWave(u"TKW01.wav"_s, 1);
    bench.playback.AudioPlay(1, 0);
    bench.playback.AudioFlush(1);
    QCOMPARE(bench.sound.MixWaves, QList<qint32>{0});
    QVERIFY(bench.output.Devices().isEmpty());
}

void TstSoundPlayback::ChannelsThatAreNotThereDoNothing() {
    Bench bench;
    bench.playback.AudioStart(false);
    bench.playback.AudioPlay(1, 0);  // no such channel
    bench.playback.AudioPlay(-1, 0);
    bench.playback.AudioLoadWave(u"TKW01.wav"_s, -1);
    QCOMPARE(bench.sound.MixWaves, QList<qint32>{0});
    bench.playback.AudioLoadWave(u"TKW01.wav"_s, 5);
    QCOMPARE(bench.sound.MixWaves.size(), 6);
    bench.playback.AudioPlay(5, 0);  // the wave is loaded, but a session has only two channels
    QVERIFY(bench.Sounded().empty());
}

void TstSoundPlayback::FlushingEndsTheSound() {
    Bench bench;
    bench.playback.PlayChime(u"鳩時計の音"_s, 12);
    bench.output.Sound(100);
    bench.playback.AudioFlush(1);
    QCOMPARE(bench.Sounded().size(), std::size_t{100});
    QVERIFY(bench.sound.MixSession != 0);
}

void TstSoundPlayback::TheLowestCountOverflows() {
    Bench bench;
    QVERIFY_THROWS_EXCEPTION(OverflowError,
                             bench.playback.PlayChime(u"鳩時計の音"_s, std::numeric_limits<qint32>::min()));
}

QTEST_GUILESS_MAIN(TstSoundPlayback)
#include "tst_sound_playback.moc"
