// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell::media {

/// Values of CdState.
inline constexpr qint32 kCdStopped = 0;
inline constexpr qint32 kCdPlaying = 1;
inline constexpr qint32 kCdPaused = 2;
inline constexpr qint32 kCdNotReady = 99;  ///< no playable disc

/// Values of CdDisplayFormat.
inline constexpr qint32 kCdTimeIntoTrack = 0;
inline constexpr qint32 kCdTimeLeftInTrack = 1;
inline constexpr qint32 kCdTimeLeftOnDisc = 2;

/// The state of the CD player, one for the program; it outlives the player's window.
struct CdPlayerState {
    qint32 CdState = kCdStopped;
    qint32 CdTrack = 0;       ///< from 1; 0 if no track is chosen: the complete disc
    qint32 CdTrackCount = 0;  ///< 0 until a disc was read
    qint32 CdLength = 0;      ///< of the complete disc, ms
    qint32 CdDisplayFormat = kCdTimeIntoTrack;
};

}  // namespace tickwell::media
