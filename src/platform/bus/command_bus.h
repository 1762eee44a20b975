// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/bus/bus_presence.h"
#include "remote/ports/command_service.h"

namespace tickwell::platform {

/// Offers the commands on the session bus.
class CommandBus : public remote::CommandService {
public:
    /// `retry`: see BusPresence.
    explicit CommandBus(int retry = BusPresence::kRetry);

    /// If another program owns the name, this one inherits it when that program ends.
    void Offer(Run run) override;
    void Withdraw() override { m_presence.Leave(); }

private:
    class Object;

    BusPresence m_presence;
};

}  // namespace tickwell::platform
