// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tickwell {

/// Waiting that does not stop the windows.
class EventWait {
public:
    virtual ~EventWait() = default;

    /// Lets the program's events run until `done` says so, or the program ends. `done` is asked a few times a
    /// second, first of all at once.
    virtual void Until(const std::function<bool()>& done) = 0;
};

}  // namespace tickwell
