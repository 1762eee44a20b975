// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::media {

/// The main window's lines, while they show the CD player.
class CdDisplay {
public:
    virtual ~CdDisplay() = default;

    /// Whether the lines currently show the player. If not, nothing is written to them.
    virtual bool IsShown() const = 0;
    virtual void ShowUpper(const QString& text) = 0;
    virtual void ShowLower(const QString& text) = 0;
};

/// Is notified of all changes of the CD player, whoever operates it.
class CdFollower {
public:
    virtual ~CdFollower() = default;

    /// The player may have changed: its state, its track, the disc, or whether it was opened. Called in the
    /// middle of a change, so the implementation must not query the player or the drive until the event has
    /// been handled.
    virtual void PlayerChanged() = 0;

    /// Playback continues at another position.
    virtual void PlayerJumped() = 0;
};

}  // namespace tickwell::media
