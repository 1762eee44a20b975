// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/bus/bus_presence.h"
#include "remote/ports/player_service.h"

namespace tickwell::platform {

/// Offers the CD player on the session bus, where the desktop's media keys look for players.
class PlayerBus : public remote::PlayerService {
public:
    /// `retry`: see BusPresence.
    explicit PlayerBus(int retry = BusPresence::kRetry);

    /// If another program owns the name, this one inherits it when that program ends.
    void Offer(Run run) override;
    void Withdraw() override { m_presence.Leave(); }
    void TellChanged(const QVariantMap& properties) override;
    void TellJump(qint64 position) override;

private:
    class Object;

    BusPresence m_presence;
};

}  // namespace tickwell::platform
