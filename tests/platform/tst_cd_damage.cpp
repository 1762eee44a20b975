// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "discs/test_disc.h"
#include "platform/drive_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

// AddressSanitizer reserves terabytes of address space; its own memory limit is set where the helper is
// started.
#ifdef __SANITIZE_ADDRESS__
const QString kMemoryLimit = u"--data=unlimited"_s;
#else
const QString kMemoryLimit = u"--data=100000000"_s;
#endif

constexpr quint32 kSeed = 0xD15C;
constexpr int kDamages = 120;    // per kind of image
constexpr int kMostPlayed = 60;  // sectors
constexpr int kMostSectors = 100 * 60 * 75;
constexpr int kPatience =
    250'000;  // ms; the helper may use three seconds of CPU time, however slowly it gets them
constexpr auto kEndlessChunks =
    "RVRO///////////////////////////////////////////////////////////////////////j4+Pj4+Pj4+Pj4+P/////"
    "////////////////////////////////////////////////////////////////////////////////////////////////"
    "/////0YAAAAUTU9UT1JPTEEAAPrBX///AAAAAOwARU5EIUAAAAAATkVSTwAGPqA=";

/// Simulates damage by a disk, a copy or a user. The last bytes are changed more often, because single-file
/// images store the description of their tracks there.
QByteArray Damaged(QByteArray bytes, QRandomGenerator& random) {
    const auto size = static_cast<quint32>(bytes.size());
    const auto place = [&] {
        const quint32 near = std::min(size, 400U);
        return static_cast<qsizetype>(random.bounded(3) == 0 ? random.bounded(size)
                                                             : size - 1 - random.bounded(near));
    };
    switch (random.bounded(4)) {
        case 0:
            return bytes.left(place());
        case 1:
            return bytes.insert(place(), static_cast<char>(random.bounded(256)));
        case 2:
            return bytes.remove(place(), static_cast<qsizetype>(random.bounded(20)) + 1);
        default:
            for (quint32 i = 0; i <= random.bounded(6U); ++i) {
                bytes[place()] = static_cast<char>(random.bounded(4) == 0 ? 0xff : random.bounded(256));
            }
            return bytes;
    }
}

bool IsTrustworthy(const media::CdContents& contents) {
    int last = -1;
    for (const media::CdTrackEntry& track : contents.tracks) {
        if (track.start <= last) {
            return false;
        }
        last = track.start;
    }
    return !contents.tracks.isEmpty() && contents.leadOut > last && contents.leadOut <= kMostSectors;
}

}  // namespace

/// Damaged images may crash the helper, but not the program.
class TstCdDamage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void DamagedImagesArePlayedOrRefused_data();
    void DamagedImagesArePlayedOrRefused();
    void AnEndlessImageEndsTheHelper();
    void NoiseIsRefused_data();
    void NoiseIsRefused();
    void FilesThatAreNotRegularOrTooLargeAreNotRead_data();
    void FilesThatAreNotRegularOrTooLargeAreNotRead();
};

/// Silences the sanitizers in the helper: crashes are expected here, and libcdio leaks memory.
void TstCdDamage::initTestCase() {
    const QByteArray options = qgetenv("ASAN_OPTIONS") + ":detect_leaks=0:log_path=/dev/null";
    qputenv("ASAN_OPTIONS", options);
}

void TstCdDamage::DamagedImagesArePlayedOrRefused_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("cue sheet") << u"cue.cue"_s;
    QTest::newRow("table of contents") << u"toc.toc"_s;
    QTest::newRow("one file") << u"nrg.nrg"_s;
}

void TstCdDamage::DamagedImagesArePlayedOrRefused() {
    QFETCH(QString, file);
    const QTemporaryDir folder;
    const TestDisc disc = MakeDisc({{440, 8}, {660, 5, 2}, {880, 9}});
    WriteCueImage(disc, folder.path(), u"cue"_s);
    WriteTocImage(disc, folder.path(), u"toc"_s);
    WriteNrgImage(disc, folder.path(), u"nrg"_s);
    const QByteArray whole = ReadAll(folder.filePath(file));
    QRandomGenerator random(kSeed);
    int discs = 0;
    for (int i = 0; i < kDamages; ++i) {
        WriteAll(folder.filePath(file), Damaged(whole, random));
        DriveBench bench(folder.filePath(file), HelperPath(), kQuick);
        const CdSeen seen = bench.Look();
        if (seen.status == media::CdStatus::Ready) {
            ++discs;
            QVERIFY(IsTrustworthy(seen.contents));
            QVERIFY(bench.PlayAll(0, std::min(seen.contents.leadOut, kMostPlayed)) != "it did not end");
            QCOMPARE(bench.Mode(), media::CdMode::Stopped);
        } else {
            QCOMPARE(seen.status, media::CdStatus::NotReady);
        }
    }
    qInfo("%d of %d were still discs", discs, kDamages);
    QVERIFY(discs > 0 && discs < kDamages);
}

/// Found by the fuzzer: chunk lengths that make libcdio read the same chunks in a loop.
void TstCdDamage::AnEndlessImageEndsTheHelper() {
    const QTemporaryDir folder;
    const QByteArray front((150 + 24) * 2352, '\0');
    const QByteArray chunks = QByteArray::fromBase64(kEndlessChunks);
    const QString path = folder.filePath(u"endless.nrg"_s);
    WriteAll(path, front + chunks);
    QProcess helper;
    helper.start(HelperPath(), {u"look"_s, path});
    QVERIFY(helper.waitForFinished(kPatience));
    QCOMPARE(helper.exitStatus(), QProcess::CrashExit);
    QCOMPARE(helper.readAllStandardOutput(), QByteArray());
}

void TstCdDamage::NoiseIsRefused_data() {
    QTest::addColumn<QString>("extension");
    for (const char* extension : {"cue", "toc", "nrg", "bin"}) {
        QTest::newRow(extension) << QString::fromLatin1(extension);
    }
}

void TstCdDamage::NoiseIsRefused() {
    QFETCH(QString, extension);
    const QTemporaryDir folder;
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 20; ++i) {
        QByteArray noise(static_cast<qsizetype>(random.bounded(5000)), '\0');
        for (char& byte : noise) {
            byte = static_cast<char>(random.bounded(256));
        }
        if (extension == u"nrg") {  // the signature of such a file, after random bytes
            noise += "NER5" + QByteArray(6, '\0') + static_cast<char>(random.bounded(16)) + '\7';
        }
        const QString path = folder.filePath(u"noise."_s + extension);
        WriteAll(path, noise);
        WriteAll(folder.filePath(u"noise.bin"_s), noise);
        QVERIFY(DriveBench(path, HelperPath(), kQuick).Look() == CdSeen());
    }
}

void TstCdDamage::FilesThatAreNotRegularOrTooLargeAreNotRead_data() {
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("odd");     // the file that is not regular
    QTest::addColumn<QString>("target");  // of a link; empty for a pipe
    for (const char* opened : {"cue.cue", "cue.bin", "toc.toc", "nrg.nrg"}) {
        const QString name = QString::fromLatin1(opened);
        QTest::addRow("%s is a pipe", opened) << name << name << QString();
        QTest::addRow("%s is a device", opened) << name << name << u"/dev/zero"_s;
    }
    QTest::newRow("the sound of a cue sheet is a pipe") << u"cue.cue"_s << u"cue.bin"_s << QString();
    QTest::newRow("the sound of a table is a pipe") << u"toc.toc"_s << u"toc.bin"_s << QString();
    QTest::newRow("a cue sheet of a gigabyte") << u"cue.cue"_s << u"cue.cue"_s << u"large"_s;
    QTest::newRow("a table of a gigabyte") << u"toc.toc"_s << u"toc.toc"_s << u"large"_s;
}

/// The helper would block forever on a pipe, and the large files would use up all memory.
void TstCdDamage::FilesThatAreNotRegularOrTooLargeAreNotRead() {
    QFETCH(QString, opened);
    QFETCH(QString, odd);
    QFETCH(QString, target);
    const QTemporaryDir folder;
    const TestDisc disc = MakeDisc({{440, 8}});
    WriteCueImage(disc, folder.path(), u"cue"_s);
    WriteTocImage(disc, folder.path(), u"toc"_s);
    WriteNrgImage(disc, folder.path(), u"nrg"_s);
    const QString path = folder.filePath(odd);
    QFile large(folder.filePath(u"large"_s));
    QVERIFY(QFile::copy(path, large.fileName()) && large.open(QIODevice::ReadWrite));
    QVERIFY(large.resize(qint64{1} << 30) && QFile::remove(path));
    QVERIFY(target.isEmpty() ? mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                             : QFile::link(target, path));
    QProcess helper;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, u"hard_rss_limit_mb=200"_s);
    helper.setProcessEnvironment(environment);
    helper.start(u"prlimit"_s, {kMemoryLimit, HelperPath(), u"look"_s, folder.filePath(opened)});
    QVERIFY(helper.waitForFinished(kPatience));
    QCOMPARE(helper.exitStatus(), QProcess::NormalExit);
    QCOMPARE(helper.readAllStandardOutput(), "not-ready\n"_ba);
}

QTEST_GUILESS_MAIN(TstCdDamage)
#include "tst_cd_damage.moc"
