// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/do_not_disturb.h"

namespace tickwell {

/// A desktop whose mode the test sets.
class FakeDoNotDisturb : public DoNotDisturb {
public:
    void Watch(bool watched) override { isWatched = watched; }
    std::optional<bool> IsOn() const override { return isWatched ? mode : std::nullopt; }

    std::optional<bool> mode;  ///< nothing: it is not told
    bool isWatched = false;
};

}  // namespace tickwell
