// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::remote {

enum class PlayerStatus { Stopped, Playing, Paused };

/// The CD player as other programs see it.
struct PlayerPicture {
    PlayerStatus status = PlayerStatus::Stopped;
    quint32 disc = 0;      ///< different for each disc
    qint32 track = 0;      ///< from 1; 0: none is chosen, and the fields below are unset
    qint64 length = 0;     ///< of the track, in µs
    QString title;         ///< of the track
    QString album;         ///< title of the disc; empty if unknown
    bool canSkip = false;  ///< to the next and the previous track
    bool canSeek = false;

    bool operator==(const PlayerPicture&) const = default;
};

}  // namespace tickwell::remote
