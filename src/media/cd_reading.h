// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_state.h"
#include "media/ports/cd_drive.h"

namespace tickwell::media {

/// Where the player is on the disc. In contrast to the commands, asking for it never changes the player.
struct CdReading {
    qint32 track = 0;     ///< from 1; 0: none is chosen, and the rest is 0
    qint64 start = 0;     ///< of the track, frames from the start of track 1
    qint64 length = 0;    ///< of the track, frames
    qint64 position = 0;  ///< frames from the start of the track, up to its length; 0 while stopped
};

/// What is played or paused is what the drive says; while stopped, the chosen track counts.
CdReading ReadingOf(const CdPicture& picture, const CdPlayerState& state);

}  // namespace tickwell::media
