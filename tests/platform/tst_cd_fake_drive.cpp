// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <memory>
#include <utility>

#include "discs/cd_text.h"
#include "discs/test_disc.h"
#include "platform/drive_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const CdSeen kTonesSeen{media::CdStatus::Ready, {{{0, true}, {321, true}, {548, true}}, 931}};
const CdSeen kMixedSeen{media::CdStatus::Ready, {{{0, false}, {450, true}, {650, true}}, 900}};
constexpr int kBadSector = 400;

}  // namespace

/// A drive as seen by the helper, which runs with a library that simulates the kernel's interface.
class TstCdFakeDrive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ADiscIsReadToTheSample();
    void StatesAreReported_data();
    void StatesAreReported();
    void ADiscPutInLaterIsFound();
    void ASwappedDiscIsNotPlayedAndThenFound();
    void ADiscRemovedWhilePlayingEndsPlayback_data();
    void ADiscRemovedWhilePlayingEndsPlayback();
    void OnlyABadSectorIsSilent();
    void ASlowDriveKeepsUp();
    void DataMakesNoSound();
    void NoCallWaitsForASlowDrive();
    void ReadingIsAbandonedWhileTheDriveIsBusy();
    void TitlesAreReadFromTheDisc_data();
    void TitlesAreReadFromTheDisc();
    void DamagedTitlesAreHarmless_data();
    void DamagedTitlesAreHarmless();

private:
    QString InFolder(const QString& name) const { return m_folder->filePath(name); }
    void PutIn(const TestDisc& disc);
    void TakeOut() { QFile::remove(InFolder(u"disc"_s)); }
    void Set(const char* name, const QByteArray& value);

    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QByteArray> m_set;
    TestDisc m_tones = ThreeTones();
    TestDisc m_mixed = MixedMode();
};

void TstCdFakeDrive::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QFile::link(u"/dev/zero"_s, InFolder(u"drive"_s)));
    Set("FAKE_DRIVE_NODE", InFolder(u"drive"_s).toUtf8());
    Set("FAKE_DRIVE_DISC", InFolder(u"disc"_s).toUtf8());
    Set("FAKE_DRIVE_TRAY", InFolder(u"tray"_s).toUtf8());
    Set("FAKE_DRIVE_BUSY", InFolder(u"busy"_s).toUtf8());
    Set("FAKE_DRIVE_TITLES", InFolder(u"titles"_s).toUtf8());
    Set("LD_PRELOAD", TICKWELL_FAKE_DRIVE);
    Set("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":verify_asan_link_order=0");
}

void TstCdFakeDrive::cleanup() {
    for (const QByteArray& name : std::exchange(m_set, {})) {
        qunsetenv(name.constData());
    }
}

void TstCdFakeDrive::Set(const char* name, const QByteArray& value) {
    QVERIFY(qputenv(name, value));
    m_set.append(name);
}

void TstCdFakeDrive::PutIn(const TestDisc& disc) {
    const QString sectors = InFolder(u"sectors%1"_s.arg(disc.end));
    WriteAll(sectors, disc.bytes);
    QByteArray words = sectors.toUtf8();
    for (qsizetype i = 0; i < disc.starts.size(); ++i) {
        words += disc.tracks[i].hertz > 0 ? " a" : " d";
        words += QByteArray::number(disc.starts[i]);
    }
    // Replaces the file, because a new file means a new disc.
    WriteAll(InFolder(u"next"_s), words + " L" + QByteArray::number(disc.end) + '\n');
    QCOMPARE(std::rename(qPrintable(InFolder(u"next"_s)), qPrintable(InFolder(u"disc"_s))), 0);
}

void TstCdFakeDrive::ADiscIsReadToTheSample() {
    PutIn(m_tones);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QVERIFY(bench.PlayAll(0, 931) == m_tones.bytes);
}

void TstCdFakeDrive::StatesAreReported_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<media::CdStatus>("status");
    QTest::newRow("empty") << QString() << media::CdStatus::NoDisc;
    QTest::newRow("tray open") << u"tray"_s << media::CdStatus::TrayOpen;
    QTest::newRow("not ready") << u"busy"_s << media::CdStatus::NotReady;
}

void TstCdFakeDrive::StatesAreReported() {
    QFETCH(QString, file);
    QFETCH(media::CdStatus, status);
    if (!file.isEmpty()) {
        PutIn(m_tones);
        WriteAll(InFolder(file), "");
    }
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == (CdSeen{status, {}}));
    QVERIFY(bench.drive.Exists());
}

void TstCdFakeDrive::ADiscPutInLaterIsFound() {
    DriveBench bench(InFolder(u"drive"_s));
    QCOMPARE(bench.Look().status, media::CdStatus::NoDisc);
    PutIn(m_tones);
    QVERIFY(bench.Look() == kTonesSeen);
    TakeOut();
    QVERIFY(bench.Seen() == kTonesSeen);  // no check was started
    QCOMPARE(bench.Look().status, media::CdStatus::NoDisc);
    QCOMPARE(bench.changes, 3);
}

void TstCdFakeDrive::ASwappedDiscIsNotPlayedAndThenFound() {
    PutIn(m_tones);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    PutIn(m_mixed);
    QVERIFY(bench.PlayAll(321, 548).isEmpty());
    QCOMPARE(bench.Seen().status, media::CdStatus::NotReady);
    QVERIFY(bench.Look() == kMixedSeen);
    QVERIFY(bench.PlayAll(450, 900) == m_mixed.Sound(450, 900));
}

void TstCdFakeDrive::ADiscRemovedWhilePlayingEndsPlayback_data() {
    QTest::addColumn<bool>("isSwapped");
    QTest::addColumn<media::CdStatus>("status");
    QTest::newRow("the disc is pulled") << false << media::CdStatus::TrayOpen;
    QTest::newRow("the disc is swapped") << true << media::CdStatus::Ready;
}

void TstCdFakeDrive::ADiscRemovedWhilePlayingEndsPlayback() {
    QFETCH(bool, isSwapped);
    QFETCH(media::CdStatus, status);
    PutIn(m_tones);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QVERIFY(bench.drive.Play(0, 931));
    QVERIFY(bench.WaitForSound());
    if (isSwapped) {
        PutIn(m_mixed);
    } else {
        WriteAll(InFolder(u"tray"_s), "");
    }
    const QByteArray sound = bench.PlayRest();
    QVERIFY(sound.size() < m_tones.bytes.size());
    QVERIFY(m_tones.bytes.startsWith(sound));
    QCOMPARE(bench.Seen().status, media::CdStatus::NotReady);
    QCOMPARE(bench.changes, 2);
    QCOMPARE(bench.Look().status, status);
}

void TstCdFakeDrive::OnlyABadSectorIsSilent() {
    PutIn(m_tones);
    Set("FAKE_DRIVE_BAD", QByteArray::number(kBadSector));
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QByteArray expected = m_tones.bytes;
    expected.replace(qsizetype{kBadSector} * kTestSectorBytes, kTestSectorBytes,
                     QByteArray(kTestSectorBytes, '\0'));
    QVERIFY(bench.PlayAll(0, 931) == expected);
    QVERIFY(!bench.drive.Picture().readError);
}

/// A read takes 100 ms: reading must be faster than playback, even with a bad sector.
void TstCdFakeDrive::ASlowDriveKeepsUp() {
    constexpr qint64 kPlayingTime = 931 * 1000 / 75;  // ms
    PutIn(m_tones);
    Set("FAKE_DRIVE_DELAY", "100");
    Set("FAKE_DRIVE_BAD", QByteArray::number(kBadSector));
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(bench.PlayAll(0, 931).size(), m_tones.bytes.size());
    QVERIFY2(clock.elapsed() < kPlayingTime * 3 / 4, qPrintable(QString::number(clock.elapsed())));
}

void TstCdFakeDrive::DataMakesNoSound() {
    PutIn(m_mixed);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kMixedSeen);
    QVERIFY(bench.PlayAll(0, 900) == m_mixed.Sound(450, 900));
}

void TstCdFakeDrive::NoCallWaitsForASlowDrive() {
    constexpr qint64 kLongestCall = 50;  // ms
    PutIn(m_tones);
    Set("FAKE_DRIVE_DELAY", "1000");
    DriveBench bench(InFolder(u"drive"_s));
    QElapsedTimer clock;
    qint64 longest = 0;
    const auto timed = [&](const auto& call) {
        clock.start();
        call();
        longest = std::max(longest, clock.elapsed());
    };
    QVERIFY(bench.Look() == kTonesSeen);
    timed([&] { bench.drive.Look(); });
    timed([&] { bench.drive.Play(0, 931); });
    for (int i = 0; i < 100; ++i) {
        timed([] { QCoreApplication::processEvents(); });
        timed([&] { bench.drive.Picture(); });
    }
    timed([&] { bench.drive.Play(321 * media::kFramesPerSector, 931); });
    timed([&] { bench.drive.Stop(); });
    QVERIFY2(longest < kLongestCall, qPrintable(QString::number(longest)));
}

void TstCdFakeDrive::ReadingIsAbandonedWhileTheDriveIsBusy() {
    PutIn(m_tones);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    Set("FAKE_DRIVE_DELAY", "100000");
    QVERIFY(bench.drive.Play(0, 931));
    QCOMPARE(bench.Mode(), media::CdMode::Seeking);
    bench.drive.Stop();
    QCOMPARE(bench.Mode(), media::CdMode::Stopped);
    qputenv("FAKE_DRIVE_DELAY", "0");
    QVERIFY(bench.PlayAll(548, 560) == m_tones.Sound(548, 560));
    QVERIFY(bench.Seen() == kTonesSeen);
}

void TstCdFakeDrive::TitlesAreReadFromTheDisc_data() {
    QTest::addColumn<QByteArray>("packs");
    QTest::addColumn<QStringList>("titles");
    const QStringList japanese{u"夜の音楽"_s, u"月の光"_s, u"ソナタ「表」第二番"_s, u"雨"_s};
    QStringEncoder shiftJis("Shift_JIS");
    QList<QByteArray> bytes;
    for (const QString& title : japanese) {
        bytes.append(shiftJis.encode(title));
    }
    QTest::newRow("in Japanese") << CdTextPacks(bytes, true) << japanese;
    QTest::newRow("in English") << CdTextPacks({"Night Music", "Clair de lune", "Caf\xe9", "Rain"}, false)
                                << QStringList{u"Night Music"_s, u"Clair de lune"_s, u"Café"_s, u"Rain"_s};
    QTest::newRow("none") << QByteArray() << QStringList();
}

void TstCdFakeDrive::TitlesAreReadFromTheDisc() {
    QFETCH(const QByteArray, packs);
    PutIn(m_tones);
    WriteAll(InFolder(u"titles"_s), packs);
    DriveBench bench(InFolder(u"drive"_s));
    QVERIFY(bench.Look() == kTonesSeen);  // titles were not requested
    bench.wantsTitles = true;
    const CdSeen seen = bench.Look();
    QTEST(seen.titles, "titles");
    QVERIFY(seen.contents == kTonesSeen.contents);
}

void TstCdFakeDrive::DamagedTitlesAreHarmless_data() {
    QTest::addColumn<QByteArray>("packs");
    const QByteArray packs = CdTextPacks({"Night Music", "Clair de lune", "Sonata", "Rain"}, false);
    QTest::newRow("cut off") << packs.first(25);
    QTest::newRow("noise") << QByteArray(360, '\xA5');
    QTest::newRow("empty packs") << QByteArray(360, '\0');
    QTest::newRow("too many") << packs.repeated(400);
    QByteArray tracks = packs;
    tracks[1] = '\x7f';
    QTest::newRow("a track that does not exist") << tracks;
    QByteArray encoding = packs;
    encoding[packs.size() - qsizetype{3} * 18 + 4] = '\x55';
    QTest::newRow("an unknown encoding") << encoding;
}

void TstCdFakeDrive::DamagedTitlesAreHarmless() {
    QFETCH(const QByteArray, packs);
    PutIn(m_tones);
    WriteAll(InFolder(u"titles"_s), packs);
    DriveBench bench(InFolder(u"drive"_s));
    bench.wantsTitles = true;
    const CdSeen seen = bench.Look();
    QCOMPARE(seen.status, media::CdStatus::Ready);
    QVERIFY(seen.contents == kTonesSeen.contents);
    QVERIFY(bench.PlayAll(0, 20) == m_tones.Sound(0, 20));
}

QTEST_GUILESS_MAIN(TstCdFakeDrive)
#include "tst_cd_fake_drive.moc"
