// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/settings.h"
#include "media/cd_player.h"
#include "media/cd_reading.h"
#include "media/ports/cd_drive.h"
#include "remote/player_calls.h"
#include "remote/ports/player_service.h"

namespace tickwell::app {

/// What media keys control and the service that publishes it; all outlive it.
struct MediaKeysParts {
    remote::PlayerService& service;
    RealTimerSource& timers;
    Handlers& handlers;
    const FurtherSettings& further;
    media::CdPlayer& player;
    media::CdDrive& drive;
    std::function<void()> openWindow;  ///< opens the player's window, or brings it to the front
};

/// Exports the CD player to media keys and other programs. It is on the bus only while the settings allow it,
/// a disc is in, and the player has been opened in this run: otherwise it would intercept the keys meant for
/// another player. Runs no timer while the settings do not allow it.
class MediaKeys : private remote::PlayerTarget, private media::CdFollower {
public:
    explicit MediaKeys(MediaKeysParts parts);
    ~MediaKeys() override;
    Q_DISABLE_COPY_MOVE(MediaKeys)

    /// To be called when the settings may have changed.
    void Follow() { Update(); }

private:
    remote::PlayerPicture Picture() const override;
    qint64 Position() const override;
    void Press(remote::PlayerKey key) override;
    void SeekTo(qint64 position) override;
    void ShowWindow() override;
    void PlayerChanged() override;
    void PlayerJumped() override;

    bool IsPlayed() const;
    media::CdReading Reading() const;
    QString TitleOf(qint32 track) const;
    void Update();
    void Offer();
    void TellNews();
    void KeepLooking();

    MediaKeysParts m_parts;
    remote::PlayerCalls m_calls;
    std::unique_ptr<Timer> m_update;  // runs Update once after all changes of one event
    std::unique_ptr<Timer> m_look;    // detects an inserted or removed disc
    remote::PlayerPicture m_told;     // the state that was published last; valid while the player is offered
    bool m_isOffered = false;
    bool m_hasJumped = false;  // since the last Update
};

}  // namespace tickwell::app
