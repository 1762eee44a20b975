// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/disc_map.h"

#include <QList>
#include <algorithm>

#include "media/command_error.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSectorsPerSecond = 75;
constexpr qint64 kSectorsPerMinute = 60 * kSectorsPerSecond;
constexpr qint64 kBeyondAnyDisc = qint64{1} << 40;  // ms or minutes; multiplying it does not overflow

/// 44100 frames are 1000 ms.
qint64 MillisecondsOf(qint64 frames) {
    return frames * 10 / 441;
}

QString Two(qint64 number) {
    return QString::number(number).rightJustified(2, u'0');
}

QString MsfText(qint64 sectors) {
    return Two(sectors / kSectorsPerMinute) + u':' + Two(sectors / kSectorsPerSecond % 60) + u':' +
           Two(sectors % kSectorsPerSecond);
}

qint64 NumberOf(QStringView digits) {
    if (digits.isEmpty()) {
        throw CommandError(kErrorNumber);
    }
    qint64 number = 0;
    for (const QChar digit : digits) {
        number = std::min(number * 10 + (digit.unicode() - u'0'), kBeyondAnyDisc);
    }
    return number;
}

/// The parts between colons; missing trailing parts are 0. Throws CommandError if there are more than `most`.
QList<qint64> PartsOf(const QString& text, qsizetype most) {
    QList<qint64> parts;
    for (const QStringView part : QStringView(text).split(u':')) {
        parts.append(NumberOf(part));
    }
    if (parts.size() > most) {
        throw CommandError(kErrorNumber);
    }
    parts.resize(most);
    return parts;
}

qint64 SectorsOf(qint64 minutes, qint64 seconds, qint64 sectors) {
    return minutes * kSectorsPerMinute + seconds * kSectorsPerSecond + sectors;
}

}  // namespace

bool DiscMap::HasAudio() const {
    return std::any_of(m_contents.tracks.begin(), m_contents.tracks.end(),
                       [](const CdTrackEntry& track) { return track.isAudio; });
}

qint32 DiscMap::StartOf(qint32 track) const {
    if (track < 1 || track > TrackCount()) {
        throw CommandError(kErrorOutside);
    }
    return m_contents.tracks[track - 1].start;
}

qint32 DiscMap::EndOf(qint32 track) const {
    return track == TrackCount() ? LeadOut() : StartOf(track + 1);
}

qint32 DiscMap::TrackAt(qint64 frame) const {
    const auto behind =
        std::upper_bound(m_contents.tracks.begin(), m_contents.tracks.end(), frame / kFramesPerSector,
                         [](qint64 sector, const CdTrackEntry& track) { return sector < track.start; });
    return std::max(1, static_cast<qint32>(behind - m_contents.tracks.begin()));
}

QString DiscMap::PositionText(qint64 frame, TimeFormat format) const {
    const qint32 track = TrackAt(frame);
    const qint32 origin = format == TimeFormat::Tmsf ? StartOf(track) : FirstSector();
    const qint64 passed = std::max(qint64{0}, frame - origin * kFramesPerSector);
    switch (format) {
        case TimeFormat::Milliseconds:
            return QString::number(MillisecondsOf(passed));
        case TimeFormat::Msf:
            return MsfText(passed / kFramesPerSector);
        case TimeFormat::Tmsf:
            break;
    }
    return Two(track) + u':' + MsfText(passed / kFramesPerSector);
}

QString DiscMap::LengthText(qint32 fromSector, qint32 toSector, TimeFormat format) const {
    const qint64 sectors = toSector - fromSector;
    return format == TimeFormat::Milliseconds ? QString::number(MillisecondsOf(sectors * kFramesPerSector))
                                              : MsfText(sectors);
}

qint32 DiscMap::SectorOf(const QString& text, TimeFormat format) const {
    qint64 sector = FirstSector();
    if (format == TimeFormat::Milliseconds) {
        const qint64 milliseconds = PartsOf(text, 1)[0];
        if (milliseconds > MillisecondsOf((LeadOut() - FirstSector()) * kFramesPerSector)) {
            throw CommandError(kErrorOutside);
        }
        sector += (milliseconds * kSectorsPerSecond + 500) / 1000;
    } else if (format == TimeFormat::Msf) {
        const QList<qint64> parts = PartsOf(text, 3);
        sector += SectorsOf(parts[0], parts[1], parts[2]);
    } else {
        const QList<qint64> parts = PartsOf(text, 4);
        sector = StartOf(static_cast<qint32>(std::min(parts[0], qint64{100}))) +
                 SectorsOf(parts[1], parts[2], parts[3]);
    }
    if (sector > LeadOut()) {
        throw CommandError(kErrorOutside);
    }
    return static_cast<qint32>(sector);
}

}  // namespace tickwell::media
