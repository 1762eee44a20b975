// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/focus_return.h"

namespace tickwell {

/// Records which window is tracked, and counts how often the focus was returned.
class FakeFocusReturn : public FocusReturn {
public:
    void Follow(quintptr window) override { followed = window; }
    void Unfollow() override { followed = 0; }
    void GiveBack() override { ++returns; }

    quintptr followed = 0;  // 0 for none
    int returns = 0;
};

}  // namespace tickwell
