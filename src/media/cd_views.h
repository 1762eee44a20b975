// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::media {

/// The main window's lines, while they show the CD player.
class CdDisplay {
public:
    virtual ~CdDisplay() = default;

    /// Whether the lines show the player now. Otherwise nothing is written to them.
    virtual bool IsShown() const = 0;
    virtual void ShowUpper(const QString& text) = 0;
    virtual void ShowLower(const QString& text) = 0;
};

/// Follows what the CD player does, whoever operates it.
class CdFollower {
public:
    virtual ~CdFollower() = default;

    /// Something about the player may have changed: its state, its track, the disc, or whether it was opened.
    /// Called in the middle of changes; nothing may be asked of the player or the drive before they are over.
    virtual void PlayerChanged() = 0;

    /// It plays on from another position.
    virtual void PlayerJumped() = 0;
};

}  // namespace tickwell::media
