// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tickwell::media {

/// Waits without blocking the windows.
class EventWait {
public:
    virtual ~EventWait() = default;

    /// Processes the program's events until `done` returns true or the program ends. `done` is called at once
    /// and then a few times a second.
    virtual void Until(const std::function<bool()>& done) = 0;
};

}  // namespace tickwell::media
