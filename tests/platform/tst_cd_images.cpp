// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QTemporaryDir>
#include <QTest>

#include "discs/test_disc.h"
#include "platform/drive_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const CdSeen kTonesSeen{media::CdStatus::Ready, {{{0, true}, {321, true}, {548, true}}, 931}};
const CdSeen kMixedSeen{media::CdStatus::Ready, {{{0, false}, {450, true}, {650, true}}, 900}};
const CdSeen kNotReady{media::CdStatus::NotReady, {}};
const CdSeen kFailed{media::CdStatus::Failed, {}};

const QByteArray kTrackLine = "  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n";

/// A file to create and open.
struct Sheet {
    QString name;
    QByteArray text;
};

}  // namespace

/// Disc images, read by the helper.
class TstCdImages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EachKindOfImageIsReadToTheSample_data();
    void EachKindOfImageIsReadToTheSample();
    void RangesAreReadToTheSample_data();
    void RangesAreReadToTheSample();
    void DataMakesNoSound();
    void SheetsThatWouldBeMisreadAreRefused_data();
    void SheetsThatWouldBeMisreadAreRefused();
    void SheetsThatAreReadCorrectlyAreAccepted_data();
    void SheetsThatAreReadCorrectlyAreAccepted();
    void AMissingSourceIsNoDrive();
    void AFileThatIsNoImageIsNotReady_data();
    void AFileThatIsNoImageIsNotReady();
    void AnotherImageInItsPlaceIsNotPlayed();
    void AnImageThatEndsTooEarlyIsFilledWithSilence();
    void AnUnchangedDiscIsNotReported();
    void WithoutAHelperTheDriveHasFailed();
    void AnImageThatMayNotBeReadHasFailed();
    void WithASilentHelperTheDiscIsNotReady();
    void ADiscThatCrashesTheHelperStaysNotReady();

private:
    QString Folder() const { return m_folder.path(); }
    QString InFolder(const QString& name) const { return m_folder.filePath(name); }
    CdSeen LookAt(const QString& path) const { return DriveBench(path).Look(); }

    QTemporaryDir m_folder;
    TestDisc m_tones = ThreeTones();
    TestDisc m_mixed = MixedMode();
};

void TstCdImages::initTestCase() {
    QVERIFY(m_folder.isValid());
    WriteCueImage(m_tones, Folder(), u"tones"_s);
    WriteTocImage(m_tones, Folder(), u"toc"_s);
    WriteNrgImage(m_tones, Folder(), u"tones"_s);
    WriteCueImage(m_mixed, Folder(), u"mixed"_s);
}

void TstCdImages::EachKindOfImageIsReadToTheSample_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("cue sheet") << u"tones.cue"_s;
    QTest::newRow("its sectors") << u"tones.bin"_s;
    QTest::newRow("big-endian table of contents") << u"toc.toc"_s;
    QTest::newRow("one file") << u"tones.nrg"_s;
}

void TstCdImages::EachKindOfImageIsReadToTheSample() {
    QFETCH(QString, name);
    DriveBench bench(InFolder(name));
    QVERIFY(bench.drive.Exists());
    QVERIFY(bench.Seen() == kNotReady);  // no check was started
    QVERIFY(bench.Look() == kTonesSeen);
    QVERIFY(bench.PlayAll(0, 931) == m_tones.bytes);
    QVERIFY(bench.Seen() == kTonesSeen);
    QVERIFY(!bench.drive.Picture().readError);
}

void TstCdImages::RangesAreReadToTheSample_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("a track") << 321 << 548;
    QTest::newRow("one sector") << 320 << 321;
    QTest::newRow("the last one") << 930 << 931;
    QTest::newRow("nothing") << 400 << 400;
    QTest::newRow("from after to") << 400 << 300;
}

void TstCdImages::RangesAreReadToTheSample() {
    QFETCH(int, from);
    QFETCH(int, to);
    DriveBench bench(InFolder(u"tones.cue"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QVERIFY(bench.PlayAll(from, to) == m_tones.Sound(from, std::max(from, to)));
    QCOMPARE(bench.drive.Picture().position, to * media::kFramesPerSector);
}

void TstCdImages::DataMakesNoSound() {
    DriveBench bench(InFolder(u"mixed.cue"_s));
    QVERIFY(bench.Look() == kMixedSeen);
    QVERIFY(m_mixed.bytes.contains("DATA0"));
    QVERIFY(bench.PlayAll(0, 900) == m_mixed.Sound(450, 900));  // the data track is skipped
    QVERIFY(bench.PlayAll(445, 700) == m_mixed.Sound(450, 700));
    QVERIFY(bench.PlayAll(0, 450).isEmpty());
    QCOMPARE(bench.drive.Picture().position, 450 * media::kFramesPerSector);
}

void TstCdImages::SheetsThatWouldBeMisreadAreRefused_data() {
    QTest::addColumn<Sheet>("sheet");
    const auto row = [](const char* name, const QString& file, const QByteArray& text) {
        QTest::newRow(name) << Sheet{file, text};
    };
    const QByteArray file = "FILE \"tones.bin\" BINARY\n";
    row("a file for each track", u"tones.cue"_s,
        file + kTrackLine + "FILE \"mixed.bin\" BINARY\n  TRACK 02 AUDIO\n    INDEX 01 00:00:00\n");
    row("another file than the one beside it", u"tones.cue"_s, "FILE \"mixed.bin\" BINARY\n" + kTrackLine);
    row("a wave", u"tones.cue"_s, "FILE \"tones.bin\" WAVE\n" + kTrackLine);
    row("short data sectors", u"tones.cue"_s,
        file + "  TRACK 01 MODE1/2048\n    INDEX 01 00:00:00\n  TRACK 02 AUDIO\n    INDEX 01 00:02:00\n");
    row("no file", u"tones.cue"_s, kTrackLine);
    row("no track", u"tones.cue"_s, file);
    row("starts that do not rise", u"tones.cue"_s,
        file + "  TRACK 01 AUDIO\n    INDEX 01 00:05:00\n  TRACK 02 AUDIO\n    INDEX 01 00:05:00\n");
    row("a track after the end of the file", u"tones.cue"_s,
        file + kTrackLine + "  TRACK 02 AUDIO\n    INDEX 01 00:12:31\n");
    row("two files in a table of contents", u"toc.toc"_s,
        "CD_DA\nTRACK AUDIO\nFILE \"toc.bin\" 00:00:00 00:04:00\nTRACK AUDIO\nFILE \"tones.bin\" 00:04:00 "
        "00:04:00\n");
    row("silence without a file", u"toc.toc"_s,
        "CD_DA\nTRACK AUDIO\nSILENCE 00:02:00\nFILE \"toc.bin\" 00:00:00\n");
    row("a wave in a table of contents", u"toc.toc"_s, "CD_DA\nTRACK AUDIO\nFILE \"tones.wav\" 00:00:00\n");
    row("an empty sheet", u"tones.cue"_s, "");
    row("an empty table of contents", u"toc.toc"_s, "");
}

void TstCdImages::SheetsThatWouldBeMisreadAreRefused() {
    QFETCH(Sheet, sheet);
    const QTemporaryDir folder;
    CopyFiles(Folder(), folder.path(), {u"tones.bin"_s, u"toc.bin"_s, u"mixed.bin"_s});
    WriteAll(folder.filePath(u"tones.wav"_s), m_tones.bytes);
    WriteAll(folder.filePath(sheet.name), sheet.text);
    DriveBench bench(folder.filePath(sheet.name));
    QVERIFY(bench.Look() == kNotReady);
}

void TstCdImages::SheetsThatAreReadCorrectlyAreAccepted_data() {
    QTest::addColumn<Sheet>("sheet");
    QTest::addColumn<int>("tracks");
    const auto row = [](const char* name, const QByteArray& text, int tracks) {
        QTest::newRow(name) << Sheet{u"tones.cue"_s, text} << tracks;
    };
    row("sheet and file renamed together", "FILE \"old name.bin\" BINARY\n" + kTrackLine, 1);
    row("a pause that is not in the file",
        "FILE \"tones.bin\" BINARY\n" + kTrackLine +
            "  TRACK 02 AUDIO\n    PREGAP 00:02:00\n    INDEX 01 00:04:21\n",
        2);
    row("remarks and titles",
        "REM GENRE Test\nTITLE \"Three tones\"\nFILE \"tones.bin\" BINARY\n  TRACK 01 AUDIO\n    TITLE "
        "\"A\"\n"
        "    FLAGS DCP\n    INDEX 01 00:00:00\n",
        1);
    row("CR LF line ends", "FILE \"tones.bin\" BINARY\r\n" + QByteArray(kTrackLine).replace("\n", "\r\n"), 1);
}

void TstCdImages::SheetsThatAreReadCorrectlyAreAccepted() {
    QFETCH(Sheet, sheet);
    QFETCH(int, tracks);
    const QTemporaryDir folder;
    CopyFiles(Folder(), folder.path(), {u"tones.bin"_s});
    WriteAll(folder.filePath(sheet.name), sheet.text);
    DriveBench bench(folder.filePath(sheet.name));
    const CdSeen seen = bench.Look();
    QCOMPARE(seen.contents.tracks.size(), tracks);
    QCOMPARE(seen.contents.leadOut, 931);
    QVERIFY(bench.PlayAll(0, 931) == m_tones.bytes);
}

void TstCdImages::AMissingSourceIsNoDrive() {
    DriveBench bench(InFolder(u"nowhere.cue"_s));
    QVERIFY(!bench.drive.Exists());
    QVERIFY(bench.Look() == kNotReady);
}

void TstCdImages::AFileThatIsNoImageIsNotReady_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("a text") << u"text.txt"_s;
    QTest::newRow("an empty image") << u"empty.nrg"_s;
    QTest::newRow("sectors without a sheet") << u"alone.bin"_s;
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a folder with an image's name") << u"folder.nrg"_s;
}

void TstCdImages::AFileThatIsNoImageIsNotReady() {
    QFETCH(QString, name);
    WriteAll(InFolder(u"text.txt"_s), "hello\n");
    WriteAll(InFolder(u"empty.nrg"_s), "");
    WriteAll(InFolder(u"alone.bin"_s), m_tones.bytes);
    QDir(Folder()).mkdir(u"folder"_s);
    QDir(Folder()).mkdir(u"folder.nrg"_s);
    QVERIFY(LookAt(InFolder(name)) == kNotReady);
}

void TstCdImages::AnotherImageInItsPlaceIsNotPlayed() {
    WriteCueImage(m_tones, Folder(), u"swapped"_s);
    DriveBench bench(InFolder(u"swapped.cue"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    const quint32 number = bench.drive.Picture().number;
    WriteCueImage(m_mixed, Folder(), u"swapped"_s);
    QVERIFY(bench.PlayAll(321, 548).isEmpty());
    QVERIFY(bench.Seen() == kNotReady);
    QCOMPARE(bench.changes, 2);
    QVERIFY(bench.drive.Picture().number != number);
    QVERIFY(bench.Look() == kMixedSeen);
    QVERIFY(bench.PlayAll(450, 900) == m_mixed.Sound(450, 900));
}

void TstCdImages::AnImageThatEndsTooEarlyIsFilledWithSilence() {
    constexpr qsizetype kThere = 700;  // sectors
    WriteCueImage(m_tones, Folder(), u"short"_s);
    DriveBench bench(InFolder(u"short.cue"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    // Truncates the file while the helper reads it: it blocks on a full pipe until the queue has room.
    QVERIFY(bench.drive.Play(0, 931));
    QVERIFY(bench.WaitForSound());
    QVERIFY(QFile::resize(InFolder(u"short.bin"_s), kThere * kTestSectorBytes));
    const QByteArray bytes = bench.PlayRest();
    QCOMPARE(bytes.size(), m_tones.bytes.size());
    QVERIFY(bytes.left(kThere * kTestSectorBytes) == m_tones.bytes.left(kThere * kTestSectorBytes));
    const QByteArray behind = bytes.mid(kThere * kTestSectorBytes);
    QCOMPARE(behind.count('\0'), behind.size());
}

void TstCdImages::AnUnchangedDiscIsNotReported() {
    DriveBench bench(InFolder(u"tones.cue"_s));
    QVERIFY(bench.Look() == kTonesSeen);
    QCOMPARE(bench.changes, 1);
    const quint32 number = bench.drive.Picture().number;
    QVERIFY(bench.drive.Play(0, 931));
    QVERIFY(bench.WaitForSound());
    QVERIFY(bench.Look() == kTonesSeen);
    QCOMPARE(bench.changes, 1);
    QCOMPARE(bench.drive.Picture().number, number);
    QCOMPARE(bench.Mode(), media::CdMode::Playing);
}

void TstCdImages::WithoutAHelperTheDriveHasFailed() {
    DriveBench bench(InFolder(u"tones.cue"_s), InFolder(u"no-such-helper"_s));
    QVERIFY(bench.drive.Exists());
    QVERIFY(bench.Look() == kFailed);
}

/// Root may read everything, so as root the helper runs as another user.
void TstCdImages::AnImageThatMayNotBeReadHasFailed() {
    const QString helper = InFolder(u"somebody"_s);
    const QByteArray somebody =
        geteuid() == 0 ? "setpriv --reuid 65534 --regid 65534 --clear-groups -- " : QByteArray();
    QVERIFY(QFile::copy(HelperPath(), InFolder(u"tickwell-cd"_s)));
    WriteAll(helper, "#!/bin/sh\nexec " + somebody + InFolder(u"tickwell-cd"_s).toUtf8() + " \"$@\"\n");
    QVERIFY(QFile::setPermissions(helper, QFile::ReadOwner | QFile::ExeOwner));
    constexpr auto kForAll =
        QFile::ReadOther | QFile::ExeOther | QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(Folder(), kForAll));
    QVERIFY(QFile::setPermissions(InFolder(u"tickwell-cd"_s), kForAll));
    WriteCueImage(m_tones, Folder(), u"locked"_s);
    QVERIFY(DriveBench(InFolder(u"locked.cue"_s), helper).Look() == kTonesSeen);
    QVERIFY(QFile::setPermissions(InFolder(u"locked.cue"_s), {}));
    QVERIFY(DriveBench(InFolder(u"locked.cue"_s), helper).Look() == kFailed);
}

void TstCdImages::WithASilentHelperTheDiscIsNotReady() {
    QVERIFY(DriveBench(InFolder(u"tones.cue"_s), u"/bin/false"_s).Look() == kNotReady);
    QVERIFY(DriveBench(InFolder(u"tones.cue"_s), u"/bin/true"_s).Look() == kNotReady);
}

/// Otherwise the disc would be found ready at once, and would crash the helper again as soon as it is played.
void TstCdImages::ADiscThatCrashesTheHelperStaysNotReady() {
    const QString helper = InFolder(u"mortal"_s);  // answers "look", but crashes on "read"
    WriteAll(helper, "#!/bin/sh\n[ \"$1\" = look ] && exec " TICKWELL_CD_HELPER " \"$@\"\nkill -SEGV $$\n");
    QVERIFY(QFile::setPermissions(helper, QFile::ReadOwner | QFile::ExeOwner));
    WriteCueImage(m_tones, Folder(), u"deadly"_s);
    DriveBench bench(InFolder(u"deadly.cue"_s), helper);
    QVERIFY(bench.Look() == kTonesSeen);
    QVERIFY(bench.PlayAll(0, 931).isEmpty());
    QVERIFY(bench.Seen() == kNotReady);
    QVERIFY(bench.Look() == kNotReady);
    WriteCueImage(m_mixed, Folder(), u"deadly"_s);
    QVERIFY(bench.Look() == kMixedSeen);
}

QTEST_GUILESS_MAIN(TstCdImages)
#include "tst_cd_images.moc"
