// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <systemd/sd-bus.h>

#include <chrono>

namespace tickwell::platform {

enum class BusState {
    Ready,
    Hangs,  ///< it did not answer in time
    Failed,
};

/// Waits until a connection that was opened is ready, for at most `patience`. sd-bus itself would wait for
/// half a minute.
BusState WaitUntilReady(sd_bus* bus, std::chrono::milliseconds patience);

}  // namespace tickwell::platform
