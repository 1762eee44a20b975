// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "remote/player_picture.h"

namespace tickwell::remote {

/// The buttons of the CD player's window that other programs can trigger.
enum class PlayerKey { Previous, Play, Pause, Stop, Next };

/// The CD player as other programs control it, while a disc is in. Failures are reported to the user, as when
/// the window is used; nothing is thrown.
class PlayerTarget {
public:
    virtual ~PlayerTarget() = default;

    virtual PlayerPicture Picture() const = 0;

    /// µs from the start of the current track, at most its length; 0 while stopped.
    virtual qint64 Position() const = 0;

    /// Acts like a click on the button: does nothing if it is disabled.
    virtual void Press(PlayerKey key) = 0;

    /// Continues at a position of the current track, in µs from 0 to its length. Only if Picture().canSeek.
    virtual void SeekTo(qint64 position) = 0;

    /// Opens the player's window, or brings it to the front.
    virtual void ShowWindow() = 0;
};

}  // namespace tickwell::remote
