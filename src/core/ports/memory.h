// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace tickwell {

/// The machine's memory usage.
class Memory {
public:
    virtual ~Memory() = default;

    /// Memory that is in use and not reclaimable, in percent of all memory, 0..100, truncated; nullopt if the
    /// system does not report it.
    virtual std::optional<int> Load() const = 0;
};

}  // namespace tickwell
