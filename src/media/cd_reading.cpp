// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_reading.h"

#include <algorithm>

#include "media/disc_map.h"

namespace tickwell::media {

CdReading ReadingOf(const CdPicture& picture, const CdPlayerState& state) {
    const bool isPlayed = state.CdState == kCdPlaying || state.CdState == kCdPaused;
    if (picture.status != CdStatus::Ready || (!isPlayed && state.CdState != kCdStopped)) {
        return {};
    }
    const DiscMap disc(picture.contents);
    const qint32 track = isPlayed ? disc.TrackAt(picture.position) : state.CdTrack;
    if (track < 1 || track > disc.TrackCount()) {
        return {};
    }
    const qint64 start = disc.StartOf(track) * kFramesPerSector;
    const qint64 length = disc.EndOf(track) * kFramesPerSector - start;
    return {.track = track,
            .start = start - disc.FirstSector() * kFramesPerSector,
            .length = length,
            .position = isPlayed ? std::clamp(picture.position - start, qint64{0}, length) : 0};
}

}  // namespace tickwell::media
