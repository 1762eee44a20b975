// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "remote/player_picture.h"

namespace tickwell::remote {

/// The buttons of the CD player's window that other programs can press.
enum class PlayerKey { Previous, Play, Pause, Stop, Next };

/// The CD player as other programs control it, while a disc is in. What goes wrong is told to the user, as it
/// is when the window is used; nothing is thrown.
class PlayerTarget {
public:
    virtual ~PlayerTarget() = default;

    virtual PlayerPicture Picture() const = 0;

    /// µs from the start of the current track; 0 if it is not played. Never beyond its end.
    virtual qint64 Position() const = 0;

    /// As if the button was clicked: does nothing if it is disabled.
    virtual void Press(PlayerKey key) = 0;

    /// Plays on from a position of the current track, µs from 0 to its length. Only while Picture().canSeek.
    virtual void SeekTo(qint64 position) = 0;

    /// Opens the player's window, or brings it to the front.
    virtual void ShowWindow() = 0;
};

}  // namespace tickwell::remote
