// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_answer.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <optional>

#include "cd_helper/protocol.h"
#include "platform/disc/cd_title.h"

namespace tickwell::platform {

namespace {

struct Word {
    const char* text;
    media::CdStatus status;
};

constexpr std::array kWordsAlone{Word{cd_helper::kNoDisc, media::CdStatus::NoDisc},
                                 Word{cd_helper::kTrayOpen, media::CdStatus::TrayOpen},
                                 Word{cd_helper::kNotReady, media::CdStatus::NotReady},
                                 Word{cd_helper::kNoRight, media::CdStatus::Failed}};

/// A line "word 321" of the contents.
struct ContentsLine {
    QByteArray word;
    int sector = -1;  // -1 if the line has another format
};

ContentsLine LineOf(const QByteArray& text) {
    const QList<QByteArray> parts = text.split(' ');
    bool isNumber = false;
    const int sector = parts.size() == 2 ? parts[1].toInt(&isNumber) : -1;
    const bool isSector = isNumber && sector >= 0 && sector <= cd_helper::kMostSectors;
    return isSector ? ContentsLine{parts[0], sector} : ContentsLine();
}

/// The track of a line "title 2 %E6%9C%88", from 0 to `tracks`; -1 if the line has another format.
int TrackOfTitle(const QList<QByteArray>& parts, qsizetype tracks) {
    bool isNumber = false;
    const int track = parts.size() == 3 && parts[0] == cd_helper::kTitle ? parts[1].toInt(&isNumber) : -1;
    return isNumber && track >= 0 && track <= tracks && IsEncodedTitle(parts[2]) ? track : -1;
}

/// The titles in these lines; nullopt if any line is malformed or out of order.
std::optional<QStringList> TitlesOf(const QList<QByteArray>& lines, qsizetype tracks) {
    QStringList titles(tracks + 1);
    int last = -1;
    for (const QByteArray& line : lines) {
        const QList<QByteArray> parts = line.split(' ');
        const int track = TrackOfTitle(parts, tracks);
        if (track <= last) {
            return std::nullopt;
        }
        titles[track] = TitleFrom(parts[2]);
        last = track;
    }
    const bool hasAny =
        std::any_of(titles.begin(), titles.end(), [](const QString& title) { return !title.isEmpty(); });
    return hasAny ? titles : QStringList();
}

CdSeen DiscOf(const QList<QByteArray>& lines) {
    CdSeen disc{media::CdStatus::Ready, {}, {}};
    int last = -1;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const ContentsLine line = LineOf(lines[i]);
        const bool isLast = i + 1 == lines.size();
        const bool isTrack = line.word == cd_helper::kAudioTrack || line.word == cd_helper::kDataTrack;
        if (line.sector <= last || isTrack == isLast || (isLast && line.word != cd_helper::kLeadOut)) {
            return {};
        }
        if (isTrack) {
            disc.contents.tracks.append({line.sector, line.word == cd_helper::kAudioTrack});
        }
        last = line.sector;
    }
    disc.contents.leadOut = last;
    const qsizetype tracks = disc.contents.tracks.size();
    return tracks == 0 || tracks > cd_helper::kMostTracks ? CdSeen() : disc;
}

CdSeen DiscWithTitles(const QList<QByteArray>& lines) {
    const auto isTitle = [](const QByteArray& line) { return line.startsWith(cd_helper::kTitle); };
    const auto first = std::find_if(lines.begin(), lines.end(), isTitle) - lines.begin();
    CdSeen disc = DiscOf(lines.first(first));
    const auto titles = TitlesOf(lines.sliced(first), disc.contents.tracks.size());
    if (disc.status != media::CdStatus::Ready || !titles) {
        return {};
    }
    disc.titles = *titles;
    return disc;
}

}  // namespace

CdSeen SeenFrom(const QByteArray& answer) {
    if (!answer.endsWith('\n')) {
        return {};
    }
    const QList<QByteArray> lines = answer.chopped(1).split('\n');
    if (lines.constFirst() == cd_helper::kDisc) {
        return DiscWithTitles(lines);
    }
    for (const Word& word : kWordsAlone) {
        if (lines.size() == 1 && lines.constFirst() == word.text) {
            return {word.status, {}, {}};
        }
    }
    return {};
}

QString ContentsText(const media::CdContents& contents) {
    QStringList lines;
    for (const media::CdTrackEntry& track : contents.tracks) {
        lines.append(QLatin1String(track.isAudio ? cd_helper::kAudioTrack : cd_helper::kDataTrack) + u' ' +
                     QString::number(track.start));
    }
    lines.append(QLatin1String(cd_helper::kLeadOut) + u' ' + QString::number(contents.leadOut));
    return lines.join(QLatin1Char(cd_helper::kLineJoint));
}

}  // namespace tickwell::platform
