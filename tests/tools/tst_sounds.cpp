// SPDX-License-Identifier: GPL-3.0-or-later
// The six waves in data/sounds: whether they are playable and equal to what make_sounds generates.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "make_sounds/sounds.h"
#include "make_sounds/wave_file.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

using Samples = std::vector<std::int16_t>;

constexpr qsizetype kHeaderSize = 44;
constexpr int kFullScale = 32767;

QString NameOf(const Sound& sound) {
    return QString::fromUtf8(sound.fileName.data(), static_cast<qsizetype>(sound.fileName.size()));
}

QByteArray FileBytes(const QString& folder, const QString& name) {
    QFile file(QDir(folder).filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray CommittedBytes(const QString& name) {
    return FileBytes(QStringLiteral(TICKWELL_SOUNDS_FOLDER), name);
}

Samples SamplesOf(const QByteArray& bytes) {
    Samples samples;
    for (qsizetype at = kHeaderSize; at + 1 < bytes.size(); at += 2) {
        samples.push_back(qFromLittleEndian<std::int16_t>(bytes.constData() + at));
    }
    return samples;
}

int Height(std::int16_t sample) {
    return std::abs(static_cast<int>(sample));
}

int Loudest(Samples::const_iterator first, Samples::const_iterator last) {
    int loudest = 0;
    std::for_each(first, last, [&](std::int16_t sample) { loudest = std::max(loudest, Height(sample)); });
    return loudest;
}

/// The middle third of the sound.
Samples Middle(const Samples& samples) {
    const auto third = static_cast<std::ptrdiff_t>(samples.size() / 3);
    return {samples.begin() + third, samples.end() - third};
}

/// The number of upward zero crossings per second.
double CyclesPerSecond(const Samples& samples) {
    int cycles = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        cycles += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
    }
    return cycles * 22050.0 / static_cast<double>(samples.size());
}

template <typename Number>
QByteArray LittleEndian(Number number) {
    QByteArray bytes(sizeof(number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

/// The header of a PCM file with one channel of 16 bits at 22050 Hz.
QByteArray HeaderFor(quint32 dataSize) {
    return "RIFF" + LittleEndian(36 + dataSize) + "WAVEfmt " + LittleEndian(quint32{16}) +
           LittleEndian(quint16{1}) + LittleEndian(quint16{1}) + LittleEndian(quint32{22050}) +
           LittleEndian(quint32{44100}) + LittleEndian(quint16{2}) + LittleEndian(quint16{16}) + "data" +
           LittleEndian(dataSize);
}

void AddSounds() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("longestMs");
    QTest::newRow("notice of the timer") << u"TKW00.wav"_s << 3000;
    QTest::newRow("cuckoo clock") << u"TKW01.wav"_s << 2300;
    QTest::newRow("baby") << u"TKW02.wav"_s << 2300;
    QTest::newRow("high strike") << u"TKW03.wav"_s << 2300;
    QTest::newRow("low strike") << u"TKW04.wav"_s << 2300;
    QTest::newRow("shout") << u"TKW05.wav"_s << 2300;
}

}  // namespace

class TstSounds : public QObject {
    Q_OBJECT

private slots:
    void HeaderFitsTheSamples_data() { AddSounds(); }
    void HeaderFitsTheSamples();
    void LastsNoLongerThanAllowed_data() { AddSounds(); }
    void LastsNoLongerThanAllowed();
    void IsLoudAndNotClipped_data() { AddSounds(); }
    void IsLoudAndNotClipped();
    void BeginsAndEndsAtZero_data() { AddSounds(); }
    void BeginsAndEndsAtZero();
    void HasNoDirectCurrent_data() { AddSounds(); }
    void HasNoDirectCurrent();
    void IsAudibleInTheMiddle_data() { AddSounds(); }
    void IsAudibleInTheMiddle();
    void EqualsWhatIsGenerated_data() { AddSounds(); }
    void EqualsWhatIsGenerated();
    void HighStrikeIsHigherThanLowStrike();
    void ProgramWritesAllSix();
    void ProgramSaysWhyItFailed_data();
    void ProgramSaysWhyItFailed();
};

void TstSounds::HeaderFitsTheSamples() {
    QFETCH(QString, name);
    const QByteArray bytes = CommittedBytes(name);
    QVERIFY(bytes.size() > kHeaderSize);
    const auto dataSize = static_cast<quint32>(bytes.size() - kHeaderSize);
    QCOMPARE(dataSize % 2, 0U);
    QCOMPARE(bytes.first(kHeaderSize).toHex(), HeaderFor(dataSize).toHex());
}

void TstSounds::LastsNoLongerThanAllowed() {
    QFETCH(QString, name);
    QFETCH(int, longestMs);
    const auto count = static_cast<qint64>(SamplesOf(CommittedBytes(name)).size());
    QVERIFY(count > 0);
    // count / 22050 s <= longestMs / 1000 s, in integers
    QVERIFY2(count * 1000 <= qint64{longestMs} * 22050, qPrintable(QString::number(count)));
}

void TstSounds::IsLoudAndNotClipped() {
    QFETCH(QString, name);
    const Samples samples = SamplesOf(CommittedBytes(name));
    const int loudest = Loudest(samples.begin(), samples.end());
    QVERIFY2(loudest > kFullScale / 2 && loudest < kFullScale * 9 / 10, qPrintable(QString::number(loudest)));
}

void TstSounds::BeginsAndEndsAtZero() {
    QFETCH(QString, name);
    const Samples samples = SamplesOf(CommittedBytes(name));
    QVERIFY(samples.size() > 100);
    // A strike is loud after half a millisecond, so only its first samples can be quiet. At the end there are
    // 4 ms.
    QVERIFY(Loudest(samples.begin(), samples.begin() + 4) <= kFullScale / 400);
    QVERIFY(Loudest(samples.end() - 88, samples.end()) <= kFullScale / 400);
    QCOMPARE(samples.front(), std::int16_t{0});
    QCOMPARE(samples.back(), std::int16_t{0});
}

void TstSounds::HasNoDirectCurrent() {
    QFETCH(QString, name);
    const Samples samples = SamplesOf(CommittedBytes(name));
    QVERIFY(!samples.empty());
    qint64 sum = 0;
    for (const std::int16_t sample : samples) {
        sum += sample;
    }
    const double mean = static_cast<double>(sum) / static_cast<double>(samples.size());
    QVERIFY2(std::fabs(mean) < kFullScale / 10000.0, qPrintable(QString::number(mean)));
}

void TstSounds::IsAudibleInTheMiddle() {
    QFETCH(QString, name);
    const Samples middle = Middle(SamplesOf(CommittedBytes(name)));
    QVERIFY(!middle.empty());
    double power = 0;
    for (const std::int16_t sample : middle) {
        power += static_cast<double>(sample) * sample;
    }
    const double level = std::sqrt(power / static_cast<double>(middle.size()));
    QVERIFY2(level > kFullScale / 50.0, qPrintable(QString::number(level)));  // -34 dB: still clearly audible
}

void TstSounds::EqualsWhatIsGenerated() {
    QFETCH(QString, name);
    const auto* const sound =
        std::find_if(kSounds.begin(), kSounds.end(), [&](const Sound& one) { return NameOf(one) == name; });
    QVERIFY(sound != kSounds.end());
    const Samples made = Finished(sound->make(), sound->peak);
    const Samples committed = SamplesOf(CommittedBytes(name));
    QCOMPARE(made.size(), committed.size());
    for (std::size_t i = 0; i < made.size(); ++i) {
        // The mathematics libraries of two machines may differ in the last digit, and a rounded sample by
        // one.
        QVERIFY2(std::abs(made[i] - committed[i]) <= 1,
                 qPrintable(u"sample %1: made %2, committed %3"_s.arg(i).arg(made[i]).arg(committed[i])));
    }
}

void TstSounds::HighStrikeIsHigherThanLowStrike() {
    // After the hammer has died away, the lowest tone remains: E6 (1318.5 Hz) and G3 (196 Hz). Remaining
    // overtones may add a few crossings.
    const double high = CyclesPerSecond(Middle(SamplesOf(CommittedBytes(u"TKW03.wav"_s))));
    const double low = CyclesPerSecond(Middle(SamplesOf(CommittedBytes(u"TKW04.wav"_s))));
    QVERIFY2(std::fabs(high - 1318.5) < 50, qPrintable(QString::number(high)));
    QVERIFY2(low > 190 && low < 250, qPrintable(QString::number(low)));
}

void TstSounds::ProgramWritesAllSix() {
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QProcess program;
    program.start(QStringLiteral(TICKWELL_MAKE_SOUNDS), {folder.path()});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAllStandardError(), QByteArray());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             QStringList({u"TKW00.wav"_s, u"TKW01.wav"_s, u"TKW02.wav"_s, u"TKW03.wav"_s, u"TKW04.wav"_s,
                          u"TKW05.wav"_s}));
    for (const Sound& sound : kSounds) {
        const std::string expected = WaveBytes(Finished(sound.make(), sound.peak));
        const QByteArray written = FileBytes(folder.path(), NameOf(sound));
        QVERIFY2(written == QByteArray::fromStdString(expected), qPrintable(NameOf(sound)));
        const QByteArray header = CommittedBytes(NameOf(sound)).left(kHeaderSize);
        QCOMPARE(written.left(kHeaderSize).toHex(), header.toHex());
    }
}

void TstSounds::ProgramSaysWhyItFailed_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no folder named") << QStringList() << u"usage: make_sounds DIR"_s;
    QTest::newRow("two folders named") << QStringList({u"one"_s, u"two"_s}) << u"usage: make_sounds DIR"_s;
    QTest::newRow("folder not there")
        << QStringList({u"nowhere"_s}) << u"cannot write nowhere/TKW00.wav: No such file"_s;
    QTest::newRow("disk full") << QStringList({u"full"_s}) << u"cannot write full/TKW03.wav: No space left"_s;
}

void TstSounds::ProgramSaysWhyItFailed() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(QDir(folder.path()).mkdir(u"full"_s));
    // Every write to this device fails as on a full disk.
    QVERIFY(QFile::link(u"/dev/full"_s, folder.filePath(u"full/TKW03.wav"_s)));
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(QStringLiteral(TICKWELL_MAKE_SOUNDS), arguments);
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
    const QString said = QString::fromUtf8(program.readAllStandardError());
    QVERIFY2(said.contains(message), qPrintable(said));
}

QTEST_GUILESS_MAIN(TstSounds)
#include "tst_sounds.moc"
