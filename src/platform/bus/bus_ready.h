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

/// Waits at most `patience` until a connection that is being established is ready. sd-bus itself would wait
/// for half a minute.
BusState WaitUntilReady(sd_bus* bus, std::chrono::milliseconds patience);

}  // namespace tickwell::platform
