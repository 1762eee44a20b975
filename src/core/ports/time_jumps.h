// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tickwell {

/// Reports time discontinuities: clock set, resume from suspend, zone change. Timers that sleep until a wall
/// clock time or a tick count have to be checked again then.
class TimeJumps {
public:
    virtual ~TimeJumps() = default;

    /// `onJump` is called soon after each jump, and sometimes without one. There is one listener; an empty
    /// function removes it.
    virtual void Listen(std::function<void()> onJump) = 0;
};

}  // namespace tickwell
