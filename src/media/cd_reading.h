// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_state.h"
#include "media/ports/cd_drive.h"

namespace tickwell::media {

/// The player's position on the disc. Unlike the MCI queries, reading it never changes the player's state.
struct CdReading {
    qint32 track = 0;     ///< from 1; 0: none is chosen, and the other fields are 0
    qint64 start = 0;     ///< of the track, frames from the start of track 1
    qint64 length = 0;    ///< of the track, frames
    qint64 position = 0;  ///< frames from the start of the track, up to its length; 0 while stopped
};

/// While playing or paused, the track and position come from the drive; while stopped, the chosen track
/// counts.
CdReading ReadingOf(const CdPicture& picture, const CdPlayerState& state);

}  // namespace tickwell::media
