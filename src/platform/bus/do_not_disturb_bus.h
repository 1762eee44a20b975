// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <array>
#include <memory>

#include "core/ports/do_not_disturb.h"
#include "platform/bus/message_bus.h"

namespace tickwell::platform {

/// The mode as the desktops tell it on the session bus: the property Inhibited of the notification service,
/// Xfce's setting, and the property of dunst. It is on if one of them says so. They are asked once and then
/// whenever one of them tells a change, appears or disappears; no service is started.
class DoNotDisturbBus : public DoNotDisturb {
public:
    static constexpr int kRetry = 30'000;  ///< ms until the bus is asked again if it is gone or hangs

    explicit DoNotDisturbBus(int retry = kRetry);

    void Watch(bool watched) override;
    std::optional<bool> IsOn() const override;

private:
    static constexpr std::size_t kSources = 3;

    void Ask();
    void Take(std::size_t source, int question, const MessageBus::Reply& reply);

    int m_retry;                        // ms
    std::unique_ptr<MessageBus> m_bus;  // null unless it is watched
    QTimer m_again;                     // asks again
    int m_question = 0;                 // the number of the last one; answers to others are stale
    std::array<std::optional<bool>, kSources> m_modes;
};

}  // namespace tickwell::platform
