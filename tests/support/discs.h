// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/ports/cd_drive.h"

namespace tickwell {

/// Three audio tracks: 1:40, 2:00 and 1:20; five minutes in total.
inline media::CdContents ThreeTracks() {
    return {{{0}, {100 * 75}, {220 * 75}}, 300 * 75};
}

/// Starts that are not whole milliseconds, and a first track that does not start at sector 0.
inline media::CdContents OddTracks() {
    return {{{32}, {10'001}, {20'012}}, 30'001};
}

/// A data track, then two audio tracks.
inline media::CdContents MixedDisc() {
    return {{{0, false}, {750}, {1500}}, 2250};
}

inline media::CdContents DataDisc() {
    return {{{0, false}}, 750};
}

}  // namespace tickwell
