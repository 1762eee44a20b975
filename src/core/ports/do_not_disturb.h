// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace tickwell {

/// The mode in which the desktop is asked not to disturb its user.
class DoNotDisturb {
public:
    virtual ~DoNotDisturb() = default;

    /// Begins to follow the mode, or ends that; returns at once. Nothing is asked before.
    virtual void Watch(bool watched) = 0;

    /// The mode as far as it is known now; nothing if it is not watched, if the desktop has no such mode, or
    /// if it has not told it yet.
    virtual std::optional<bool> IsOn() const = 0;
};

}  // namespace tickwell
