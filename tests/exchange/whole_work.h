// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <thread>

#include "core/sliced_work.h"

namespace tickwell::exchange {

/// Runs the work to its end.
inline void DoWhole(SlicedWork& work) {
    while (!work.Step()) {
        std::this_thread::yield();
    }
}

}  // namespace tickwell::exchange
