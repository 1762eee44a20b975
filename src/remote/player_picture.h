// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::remote {

enum class PlayerStatus { Stopped, Playing, Paused };

/// The CD player as other programs see it.
struct PlayerPicture {
    PlayerStatus status = PlayerStatus::Stopped;
    quint32 disc = 0;      ///< differs from disc to disc
    qint32 track = 0;      ///< from 1; 0: none is chosen, and nothing below is known
    qint64 length = 0;     ///< of the track, µs
    QString title;         ///< of the track
    QString album;         ///< title of the disc; empty if it has none
    bool canSkip = false;  ///< to the next and to the previous track
    bool canSeek = false;

    bool operator==(const PlayerPicture&) const = default;
};

}  // namespace tickwell::remote
