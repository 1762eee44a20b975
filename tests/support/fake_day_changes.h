// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/day_changes.h"

namespace tickwell {

/// Counts the notifications.
class FakeDayChanges : public DayChanges {
public:
    void RaiseRefresh() override { ++raised; }

    int raised = 0;
};

}  // namespace tickwell
