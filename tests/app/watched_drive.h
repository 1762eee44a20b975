// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "support/fake_cd_drive.h"

namespace tickwell::app {

/// A drive that tells when it is stopped.
class WatchedDrive : public FakeCdDrive {
public:
    void Stop() override {
        FakeCdDrive::Stop();
        if (onStop) {
            onStop();
        }
    }

    std::function<void()> onStop;
};

}  // namespace tickwell::app
