// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/ports/cd_drive.h"

namespace tickwell::media {

/// How commands and replies write a time on a disc: milliseconds; minutes, seconds and sectors (03:05:74); or
/// the track number followed by the same, counted from the start of that track (02:01:10:00).
enum class TimeFormat { Milliseconds, Msf, Tmsf };

/// Times and tracks of one disc. Texts count from the start of track 1, sectors and frames from sector 0 of
/// the disc. Milliseconds are rounded down when written and read back to the nearest sector, so every sector
/// is restored exactly.
class DiscMap {
public:
    explicit DiscMap(CdContents contents) : m_contents(std::move(contents)) {}

    bool HasAudio() const;
    qint32 TrackCount() const { return static_cast<qint32>(m_contents.tracks.size()); }
    qint32 FirstSector() const { return m_contents.tracks.first().start; }
    qint32 LeadOut() const { return m_contents.leadOut; }

    /// The first sector of a track, and the sector after its last. Throw CommandError if there is no such
    /// track.
    qint32 StartOf(qint32 track) const;
    qint32 EndOf(qint32 track) const;

    /// The track at a frame; the first one for a frame before it, the last one for a frame after it.
    qint32 TrackAt(qint64 frame) const;

    QString PositionText(qint64 frame, TimeFormat format) const;
    QString LengthText(qint32 fromSector, qint32 toSector, TimeFormat format) const;

    /// The sector at a time written as digits and colons. Throws CommandError if the text is not a time in
    /// this format or is outside the disc. The lead-out still counts as inside.
    qint32 SectorOf(const QString& text, TimeFormat format) const;

private:
    CdContents m_contents;
};

}  // namespace tickwell::media
