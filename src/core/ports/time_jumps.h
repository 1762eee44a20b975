// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tickwell {

/// Tells when time went another way than timers count it: the wall clock was set, the machine woke from
/// suspend, or another zone holds. Whoever sleeps until a moment of the wall clock or of the tick looks again
/// then.
class TimeJumps {
public:
    virtual ~TimeJumps() = default;

    /// `onJump` is called soon after each jump, also where it turns out that nothing changed. There is one
    /// listener; an empty function ends its listening.
    virtual void Listen(std::function<void()> onJump) = 0;
};

}  // namespace tickwell
