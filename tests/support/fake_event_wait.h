// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/ports/event_wait.h"

namespace tickwell {

/// Runs `meanwhile` between two calls of `done`; gives up after a thousand, as if the program had ended.
class FakeEventWait : public media::EventWait {
public:
    void Until(const std::function<bool()>& done) override {
        for (int round = 0; round < 1000 && !done(); ++round) {
            ++rounds;
            if (meanwhile) {
                meanwhile();
            }
        }
    }

    std::function<void()> meanwhile;
    int rounds = 0;
};

}  // namespace tickwell
