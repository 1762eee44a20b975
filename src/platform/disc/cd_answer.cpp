// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_answer.h"

#include <QStringList>
#include <array>

#include "cd_helper/protocol.h"

namespace tickwell {

namespace {

struct Word {
    const char* text;
    CdStatus status;
};

constexpr std::array kWordsAlone{Word{kNoDisc, CdStatus::NoDisc}, Word{kTrayOpen, CdStatus::TrayOpen},
                                 Word{kNotReady, CdStatus::NotReady}, Word{kNoRight, CdStatus::Failed}};

/// A line "word 321" of the contents.
struct ContentsLine {
    QByteArray word;
    int sector = -1;  // -1 where the line is not one
};

ContentsLine LineOf(const QByteArray& text) {
    const QList<QByteArray> parts = text.split(' ');
    bool isNumber = false;
    const int sector = parts.size() == 2 ? parts[1].toInt(&isNumber) : -1;
    const bool isSector = isNumber && sector >= 0 && sector <= kMostSectors;
    return isSector ? ContentsLine{parts[0], sector} : ContentsLine();
}

CdSeen DiscOf(const QList<QByteArray>& lines) {
    CdSeen disc{CdStatus::Ready, {}};
    int last = -1;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const ContentsLine line = LineOf(lines[i]);
        const bool isLast = i + 1 == lines.size();
        const bool isTrack = line.word == kAudioTrack || line.word == kDataTrack;
        if (line.sector <= last || isTrack == isLast || (isLast && line.word != kLeadOut)) {
            return {};
        }
        if (isTrack) {
            disc.contents.tracks.append({line.sector, line.word == kAudioTrack});
        }
        last = line.sector;
    }
    disc.contents.leadOut = last;
    const qsizetype tracks = disc.contents.tracks.size();
    return tracks == 0 || tracks > kMostTracks ? CdSeen() : disc;
}

}  // namespace

CdSeen SeenFrom(const QByteArray& answer) {
    if (!answer.endsWith('\n')) {
        return {};
    }
    const QList<QByteArray> lines = answer.chopped(1).split('\n');
    if (lines.constFirst() == kDisc) {
        return DiscOf(lines);
    }
    for (const Word& word : kWordsAlone) {
        if (lines.size() == 1 && lines.constFirst() == word.text) {
            return {word.status, {}};
        }
    }
    return {};
}

QString ContentsText(const CdContents& contents) {
    QStringList lines;
    for (const CdTrackEntry& track : contents.tracks) {
        lines.append(QLatin1String(track.isAudio ? kAudioTrack : kDataTrack) + u' ' +
                     QString::number(track.start));
    }
    lines.append(QLatin1String(kLeadOut) + u' ' + QString::number(contents.leadOut));
    return lines.join(QLatin1Char(kLineJoint));
}

}  // namespace tickwell
