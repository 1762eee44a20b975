// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/test_disc.h"

#include <QDir>
#include <QtEndian>
#include <cmath>
#include <numbers>

#include "support/files.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFramesInSector = 588;
constexpr double kFramesInSecond = 44100;
constexpr double kLowest = 5000;  // peak amplitudes at the start (kLowest) and the end (kHighest) of a track
constexpr double kHighest = 9000;
constexpr int kSectorsInSecond = 75;

QByteArray Tone(double hertz, int sectors) {
    const int frames = sectors * kFramesInSector;
    QByteArray bytes(qsizetype{frames} * 4, '\0');
    for (int i = 0; i < frames; ++i) {
        const double height = kLowest + (kHighest - kLowest) * i / frames;
        const double turn = 2 * std::numbers::pi * hertz * i / kFramesInSecond;
        char* const frame = bytes.data() + qsizetype{i} * 4;
        qToLittleEndian(static_cast<qint16>(std::lrint(height * std::sin(turn))), frame);
        qToLittleEndian(static_cast<qint16>(std::lrint(height * std::sin(turn * 1.5))), frame + 2);
    }
    return bytes;
}

char BinaryCodedDecimal(int number) {
    return static_cast<char>(number / 10 * 16 + number % 10);
}

/// A mode 1 data sector. It begins with the sync pattern, which never occurs at the start of an audio sector.
QByteArray DataSector(int sector) {
    const int at = sector + kTestPregap;
    QByteArray bytes = QByteArray(1, '\0') + QByteArray(10, '\xff') + QByteArray(1, '\0');
    bytes += BinaryCodedDecimal(at / kSectorsInSecond / 60);
    bytes += BinaryCodedDecimal(at / kSectorsInSecond % 60);
    bytes += BinaryCodedDecimal(at % kSectorsInSecond);
    bytes += '\1';
    bytes += "DATA" + QByteArray::number(sector);
    return bytes.leftJustified(kTestSectorBytes, 'x');
}

QByteArray Data(int first, int sectors) {
    QByteArray bytes;
    for (int i = 0; i < sectors; ++i) {
        bytes += DataSector(first + i);
    }
    return bytes;
}

QByteArray Silence(int sectors) {
    return QByteArray(qsizetype{sectors} * kTestSectorBytes, '\0');
}

QByteArray Swapped(QByteArray bytes) {
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        std::swap(bytes[i], bytes[i + 1]);
    }
    return bytes;
}

/// The start of the pause before a track, or of the track if it has no pause.
int PauseOf(const TestDisc& disc, int track) {
    return disc.starts[track] - disc.tracks[track].pause;
}

int EndOf(const TestDisc& disc, int track) {
    return track + 1 < disc.starts.size() ? PauseOf(disc, track + 1) : disc.end;
}

/// The title of a track, or of the disc if `track` is 0, as a line of a cue sheet.
QByteArray CueTitle(const TestDisc& disc, int track) {
    return track < disc.titles.size() ? "TITLE \"" + disc.titles[track] + "\"\n" : QByteArray();
}

QByteArray TocTitle(const TestDisc& disc, int track) {
    return track < disc.titles.size()
               ? "CD_TEXT {\n  LANGUAGE 0 {\n    TITLE \"" + disc.titles[track] + "\"\n  }\n}\n"
               : QByteArray();
}

QByteArray TocTrack(const TestDisc& disc, int track, const QByteArray& file) {
    const int from = PauseOf(disc, track);
    QByteArray text = "TRACK AUDIO\n" + TocTitle(disc, track + 1) + "FILE \"" + file + "\" " +
                      MinutesSecondsSectors(from) + ' ' + MinutesSecondsSectors(EndOf(disc, track) - from) +
                      '\n';
    if (disc.tracks[track].pause > 0) {
        text += "START " + MinutesSecondsSectors(disc.tracks[track].pause) + '\n';
    }
    return text + '\n';
}

template <typename Number>
QByteArray BigEndian(Number number) {
    QByteArray bytes(sizeof(number), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray Chunk(const QByteArray& name, const QByteArray& body) {
    return name + BigEndian(static_cast<quint32>(body.size())) + body;
}

QByteArray NrgIndex(int track, int index, int sector) {
    constexpr char kAudio = '\1';
    return QByteArray(1, kAudio) + static_cast<char>(track) + static_cast<char>(index) + '\0' +
           BigEndian(qint32{sector});
}

quint64 NrgOffset(int sector) {
    return static_cast<quint64>(sector + kTestPregap) * kTestSectorBytes;
}

QByteArray NrgTrack(quint64 pause, quint64 start, quint64 end) {
    return QByteArray(12, '\0') + BigEndian(quint16{kTestSectorBytes}) + QByteArray("\7\0\0\1", 4) +
           BigEndian(pause) + BigEndian(start) + BigEndian(end);
}

QByteArray NrgChunks(const TestDisc& disc) {
    constexpr int kLeadOut = 0xAA;
    const auto count = static_cast<int>(disc.tracks.size());
    QByteArray index = NrgIndex(0, 0, -kTestPregap);
    QByteArray tracks;
    for (int i = 0; i < count; ++i) {
        const int pause = i == 0 ? -kTestPregap : PauseOf(disc, i);
        index += NrgIndex(i + 1, 0, pause) + NrgIndex(i + 1, 1, disc.starts[i]);
        tracks += NrgTrack(NrgOffset(pause), NrgOffset(disc.starts[i]), NrgOffset(EndOf(disc, i)));
    }
    index += NrgIndex(kLeadOut, 1, disc.end);
    const QByteArray head = QByteArray(4, '\0') + QByteArray(16, '\0') + '\1' + static_cast<char>(count);
    return Chunk("CUEX", index) + Chunk("DAOX", head + tracks) +
           Chunk("SINF", BigEndian(static_cast<quint32>(count))) + Chunk("MTYP", BigEndian(quint32{1})) +
           Chunk("END!", QByteArray());
}

}  // namespace

QByteArray TestDisc::Sound(int from, int to) const {
    QByteArray sound = bytes.mid(qsizetype{from} * kTestSectorBytes, qsizetype{to - from} * kTestSectorBytes);
    for (qsizetype i = 0; i < tracks.size(); ++i) {
        if (tracks[i].hertz > 0) {
            continue;
        }
        const int next = i + 1 < starts.size() ? starts[i + 1] : end;
        for (int sector = std::max(from, starts[i]); sector < std::min(to, next); ++sector) {
            sound.replace(qsizetype{sector - from} * kTestSectorBytes, kTestSectorBytes, Silence(1));
        }
    }
    return sound;
}

TestDisc MakeDisc(const QList<TestTrack>& tracks) {
    TestDisc disc;
    disc.tracks = tracks;
    for (const TestTrack& track : tracks) {
        disc.bytes += Silence(track.pause);
        const auto start = static_cast<int>(disc.bytes.size() / kTestSectorBytes);
        disc.starts.append(start);
        disc.bytes += track.hertz > 0 ? Tone(track.hertz, track.sectors) : Data(start, track.sectors);
    }
    disc.end = static_cast<int>(disc.bytes.size() / kTestSectorBytes);
    return disc;
}

TestDisc ThreeTones() {
    return MakeDisc({{440, 301}, {660, 227, 20}, {880, 383}});
}

TestDisc MixedMode() {
    return MakeDisc({{0, 300}, {500, 200, 150}, {700, 250}});
}

QByteArray MinutesSecondsSectors(int sector) {
    return QStringLiteral("%1:%2:%3")
        .arg(sector / kSectorsInSecond / 60, 2, 10, QChar(u'0'))
        .arg(sector / kSectorsInSecond % 60, 2, 10, QChar(u'0'))
        .arg(sector % kSectorsInSecond, 2, 10, QChar(u'0'))
        .toLatin1();
}

QByteArray CueSheet(const TestDisc& disc, const QString& binName) {
    QByteArray sheet = CueTitle(disc, 0) + "FILE \"" + binName.toUtf8() + "\" BINARY\n";
    for (int i = 0; i < disc.tracks.size(); ++i) {
        const TestTrack& track = disc.tracks[i];
        sheet += "  TRACK " + QByteArray::number(i + 1).rightJustified(2, '0') +
                 (track.hertz > 0 ? " AUDIO\n" : " MODE1/2352\n");
        sheet += CueTitle(disc, i + 1);
        if (track.pause > 0) {
            sheet += "    INDEX 00 " + MinutesSecondsSectors(PauseOf(disc, i)) + '\n';
        }
        sheet += "    INDEX 01 " + MinutesSecondsSectors(disc.starts[i]) + '\n';
    }
    return sheet;
}

QString WriteCueImage(const TestDisc& disc, const QString& folder, const QString& name) {
    QString path = QDir(folder).filePath(name + u".cue");
    WriteAll(QDir(folder).filePath(name + u".bin"), disc.bytes);
    WriteAll(path, CueSheet(disc, name + u".bin"));
    return path;
}

QString WriteTocImage(const TestDisc& disc, const QString& folder, const QString& name) {
    QString path = QDir(folder).filePath(name + u".toc");
    const QString bin = name + u".bin";
    WriteAll(QDir(folder).filePath(bin), Swapped(disc.bytes));  // these images contain big-endian samples
    QByteArray sheet = "CD_DA\n" + TocTitle(disc, 0) + '\n';
    for (int i = 0; i < disc.tracks.size(); ++i) {
        sheet += TocTrack(disc, i, bin.toUtf8());
    }
    WriteAll(path, sheet);
    return path;
}

QString WriteNrgImage(const TestDisc& disc, const QString& folder, const QString& name) {
    QString path = QDir(folder).filePath(name + u".nrg");
    const QByteArray data = Silence(kTestPregap) + disc.bytes;
    WriteAll(path, data + NrgChunks(disc) + "NER5" + BigEndian(static_cast<quint64>(data.size())));
    return path;
}

}  // namespace tickwell
