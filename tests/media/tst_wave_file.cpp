// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "media/wave_file.h"
#include "support/files.h"
#include "support/wave_bytes.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

using Values = std::vector<qint16>;

/// Parsing of wave files.
class TstWaveFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SixteenBitsAreTakenAsTheyAre();
    void EightBitsAreCentred();
    void TwoChannelsMakeOneFrame();
    void ChunksInBetweenAreSkipped_data();
    void ChunksInBetweenAreSkipped();
    void ATruncatedFileGivesItsCompleteFrames();
    void AnExtensibleFormatMayContainPcm();
    void AWaveWithoutFramesIsOne();
    void FilesThatCannotBePlayed_data();
    void FilesThatCannotBePlayed();
    void OnDisk();
    void DamagedFilesNeverCrash();
};

void TstWaveFile::SixteenBitsAreTakenAsTheyAre() {
    const auto wave = WaveOf(WaveBytes({.data = QByteArray::fromHex("00000100ffffff7f0080")}));
    QVERIFY(wave);
    QCOMPARE(wave->format, (SoundFormat{.rate = 22050, .channels = 1}));
    QVERIFY(wave->samples == (Values{0, 1, -1, 32767, -32768}));
    QCOMPARE(wave->Frames(), 5);
}

void TstWaveFile::EightBitsAreCentred() {
    const auto wave = WaveOf(WaveBytes({.rate = 8000, .bits = 8, .data = QByteArray::fromHex("8000ff81")}));
    QVERIFY(wave);
    QVERIFY(wave->samples == (Values{0, -32768, 32512, 256}));
}

void TstWaveFile::TwoChannelsMakeOneFrame() {
    const auto wave = WaveOf(WaveBytes({.channels = 2, .rate = 44100, .data = Samples16(8)}));
    QVERIFY(wave);
    QCOMPARE(wave->format, (SoundFormat{.rate = 44100, .channels = 2}));
    QCOMPARE(wave->Frames(), 4);
}

void TstWaveFile::ChunksInBetweenAreSkipped_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("even") << ChunkBytes("LIST", "abcd");
    QTest::newRow("odd, padded") << ChunkBytes("LIST", "abc");
    QTest::newRow("empty") << ChunkBytes("JUNK", "");
    QTest::newRow("two") << ChunkBytes("fact", "1234") + ChunkBytes("LIST", "x");
}

void TstWaveFile::ChunksInBetweenAreSkipped() {
    QFETCH(QByteArray, before);
    const auto wave = WaveOf(WaveBytes({.data = Samples16(3), .before = before}));
    QVERIFY(wave);
    QVERIFY(wave->samples == (Values{0, 1, 2}));
}

void TstWaveFile::ATruncatedFileGivesItsCompleteFrames() {
    QByteArray bytes = WaveBytes({.channels = 2, .data = Samples16(8)});
    bytes.chop(5);  // the last frame and one byte of the previous one
    const auto wave = WaveOf(bytes);
    QVERIFY(wave);
    QVERIFY(wave->samples == (Values{0, 1, 2, 3}));
}

void TstWaveFile::AnExtensibleFormatMayContainPcm() {
    const auto extensible = [](quint16 inTruth) {
        const QByteArray format =
            LittleEndian<quint16>(0xFFFE) + LittleEndian<quint16>(1) + LittleEndian<quint32>(22050) +
            LittleEndian<quint32>(44100) + LittleEndian<quint16>(2) + LittleEndian<quint16>(16) +
            LittleEndian<quint16>(22) + QByteArray(6, '\0') + LittleEndian(inTruth) + QByteArray(14, '\0');
        return ChunkBytes("RIFF", "WAVE" + ChunkBytes("fmt ", format) + ChunkBytes("data", Samples16(2)));
    };
    QVERIFY(WaveOf(extensible(1)));
    QVERIFY(!WaveOf(extensible(3)));
}

void TstWaveFile::AWaveWithoutFramesIsOne() {
    const auto wave = WaveOf(WaveBytes({}));
    QVERIFY(wave);
    QCOMPARE(wave->Frames(), 0);
}

void TstWaveFile::FilesThatCannotBePlayed_data() {
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = WaveBytes({.data = Samples16(4)});
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a text") << QByteArray("RIFF is not all that it takes to be a wave");
    QTest::newRow("only the header") << good.first(12);
    QTest::newRow("truncated in the format") << good.first(30);
    QTest::newRow("no data") << good.first(36);
    QTest::newRow("other family") << "RIFX" + good.sliced(4);
    QTest::newRow("compressed") << WaveBytes({.tag = 2, .data = Samples16(4)});
    QTest::newRow("float") << WaveBytes({.tag = 3, .data = Samples16(4)});
    QTest::newRow("24 bits") << WaveBytes({.bits = 24, .data = Samples16(6)});
    QTest::newRow("no channel") << WaveBytes({.channels = 0, .data = Samples16(4)});
    QTest::newRow("three channels") << WaveBytes({.channels = 3, .data = Samples16(6)});
    QTest::newRow("too slow") << WaveBytes({.rate = 999, .data = Samples16(4)});
    QTest::newRow("too fast") << WaveBytes({.rate = 192'001, .data = Samples16(4)});
    QTest::newRow("a chunk longer than the file")
        << good.first(36) + "LIST" + LittleEndian<quint32>(0xFFFFFFFF) + Samples16(4);
}

void TstWaveFile::FilesThatCannotBePlayed() {
    QFETCH(QByteArray, bytes);
    QVERIFY(!WaveOf(bytes));
}

void TstWaveFile::OnDisk() {
    const QTemporaryDir folder;
    WriteAll(folder.filePath(u"good.wav"_s), WaveBytes({.data = Samples16(4)}));
    WriteAll(folder.filePath(u"bad.wav"_s), "no wave");
    QVERIFY(ReadWaveFile(folder.filePath(u"good.wav"_s)).problem == WaveProblem::None);
    QCOMPARE(ReadWaveFile(folder.filePath(u"good.wav"_s)).wave.Frames(), 4);
    QVERIFY(ReadWaveFile(folder.filePath(u"bad.wav"_s)).problem == WaveProblem::NotPlayable);
    QVERIFY(ReadWaveFile(folder.filePath(u"none.wav"_s)).problem == WaveProblem::Missing);
    QVERIFY(ReadWaveFile(folder.path()).problem == WaveProblem::Missing);
    QFile huge(folder.filePath(u"huge.wav"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize((qint64{64} << 20) + 1));
    QVERIFY(ReadWaveFile(huge.fileName()).problem == WaveProblem::NotPlayable);
}

void TstWaveFile::DamagedFilesNeverCrash() {
    QRandomGenerator random(22050);
    const QByteArray good =
        WaveBytes({.channels = 2, .data = Samples16(64), .before = ChunkBytes("LIST", "abc")});
    int waves = 0;
    for (int round = 0; round < 20'000; ++round) {
        QByteArray bytes = good.first(random.bounded(good.size() + 1));
        for (int change = random.bounded(6); change > 0 && !bytes.isEmpty(); --change) {
            bytes[random.bounded(std::min<qsizetype>(bytes.size(), 64))] =
                static_cast<char>(random.bounded(256));
        }
        if (const auto wave = WaveOf(bytes)) {
            ++waves;
            QCOMPARE(wave->Frames() * wave->format.channels, static_cast<qint64>(wave->samples.size()));
        }
    }
    QVERIFY(waves > 100);  // not all were refused at once
}

QTEST_GUILESS_MAIN(TstWaveFile)
#include "tst_wave_file.moc"
