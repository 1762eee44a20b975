// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace tickwell {

/// How full the machine's memory is.
class Memory {
public:
    virtual ~Memory() = default;

    /// What is in use and cannot be freed for others, in percent of all, 0..100, truncated; nothing where the
    /// system does not say.
    virtual std::optional<int> Load() const = 0;
};

}  // namespace tickwell
