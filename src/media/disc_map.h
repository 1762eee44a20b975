// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/ports/cd_drive.h"

namespace tickwell {

/// How commands and replies write a time on a disc: milliseconds; minutes, seconds and sectors (03:05:74); or
/// the same behind the number of a track, counted from its start (02:01:10:00).
enum class TimeFormat { Milliseconds, Msf, Tmsf };

/// Times and tracks of one disc. Texts count from the start of track 1, sectors and frames as the drive
/// counts. Milliseconds are cut off and read back to the nearest sector, so that every sector comes back as
/// itself.
class DiscMap {
public:
    explicit DiscMap(CdContents contents) : m_contents(std::move(contents)) {}

    bool HasAudio() const;
    qint32 TrackCount() const { return static_cast<qint32>(m_contents.tracks.size()); }
    qint32 FirstSector() const { return m_contents.tracks.first().start; }
    qint32 LeadOut() const { return m_contents.leadOut; }

    /// The first sector of a track, and the one behind its last. Throw CommandError for a track that is not
    /// there.
    qint32 StartOf(qint32 track) const;
    qint32 EndOf(qint32 track) const;

    /// The track at a frame; the first before the first, the last behind the last.
    qint32 TrackAt(qint64 frame) const;

    QString PositionText(qint64 frame, TimeFormat format) const;
    QString LengthText(qint32 fromSector, qint32 toSector, TimeFormat format) const;

    /// The sector that a text of digits and colons means. Throws CommandError for a text that is no time of
    /// this format, and for one outside the disc. The lead-out is the last that lies inside.
    qint32 SectorOf(const QString& text, TimeFormat format) const;

private:
    CdContents m_contents;
};

}  // namespace tickwell
